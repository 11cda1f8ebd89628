/// @file
/// Trees in dialogs. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/material_tree.h>
#include <vek/values/map.h>

#include <afxcmn.h>

/// A tree that gets language and texts from the dialog that it is in.
class VEK_API CVekTreeCtrl : public CTreeCtrl
{
    DECLARE_DYNAMIC(CVekTreeCtrl)

public:
    /// The language of the parent; null if that is not a `CVekDlg`.
    virtual const wchar_t* country() const;

    /// The text of a key, as the parent gives it; the built-in text if that is not a `CVekDlg`.
    virtual const wchar_t* GetMsg(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language);
};

/// The material library as a tree, from which a material is selected. What it shows is told at `VEK::matTree`.
class VEK_API CVekMatTreeCtrl : public CVekTreeCtrl
{
    DECLARE_DYNAMIC(CVekMatTreeCtrl)

public:
    /// Fills the tree and selects a material, or else the root of the library.
    /// @param flags bits of `VEK::MatTreeFlags`
    /// @param key in any case; null for none
    /// @param physKeys in upper case; without `matTreePhys` those of the last call stay
    /// @return false, with the roots alone or a part of the tree, when memory runs out
    bool init(unsigned flags, const wchar_t* key, const CVekArrayTempl<CVekString>& physKeys);

    /// Shows the labels in the language that the dialog has by now, sorted by them. What is selected stays so, and what
    /// is open. Called from the dialog's `updLang`.
    /// @return as `init`; true for a tree that has not been filled
    bool updLang();

    /// Selects a node with this very key; of several one of them.
    /// @return false, with the selection as it was, if there is none
    bool selectMat(const wchar_t* key);

    /// The key of the selected material.
    /// @return false, with `key` unchanged, if a root or nothing is selected
    bool getSelMat(CVekString& key) const;

    CImageList m_images; ///< by `VEK::MatTreeImage`
    VEK::CMatMgr m_matMgr;
    CVekString m_selMat;                         ///< key to select
    CVekString m_initMat;                        ///< key that was to be selected at `init`
    HTREEITEM m_selItem = nullptr;               ///< what `init` selected
    CVekMapTempl<HTREEITEM, CVekString> m_items; ///< key of each material's node; the roots are not in it
    CVekArrayTempl<CVekString> m_physKeys;       ///< keys of the physical data asked for

protected:
    void PreSubclassWindow() override;

private:
    unsigned m_flags = 0;

    HTREEITEM insert(const wchar_t* text, int image, HTREEITEM parent);
    bool insertMaterials(const VEK::MatTree& tree, HTREEITEM library, HTREEITEM drawing);
};

#endif

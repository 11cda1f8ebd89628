/// @file
/// The dialog that lets the user select a material. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/window/tree.h>
#include <vek/dialogframe/window/dlg.h>
#include <vek/dialogframe/window/dlg_env.h>

namespace VEK
{

/// The surroundings of the material dialog, and what it offers.
struct VEK_API DlgEnvMatTree_st : DlgEnv_st {
    CVekArrayTempl<CVekString> options;  ///< words, see `matDialogFlags`
    CVekArrayTempl<CVekString> physKeys; ///< with "PHYS": keys that physical data must have, in any case
    bool drawingMats = false;            ///< the drawing's own materials, too
    bool showKeys = false;               ///< the key of each material before its label
};

/// Lets the user select a material.
/// @param key the material that is selected first, then the user's choice; unchanged without one
/// @return 1 for a choice, 0 for none; -1 if the dialog cannot be opened
VEK_API int dlgMatTree(const DlgEnvMatTree_st& env, CVekString& key);

} // namespace VEK

/// The material library as a tree, with a button OK that is enabled for materials that can be chosen. It can be resized
/// and remembers its place.
class VEK_API CVekMatTreeDlg : public CVekDlg
{
    DECLARE_DYNAMIC(CVekMatTreeDlg)

public:
    explicit CVekMatTreeDlg(CWnd* parent = nullptr);

    /// Sets language, help, flags and physical keys, before the dialog is opened.
    /// @param key to select; null leaves what was set before
    void setUp(const VEK::DlgEnvMatTree_st& env, const wchar_t* key);

    void addLangRsc() override;
    void addHlpRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;

    unsigned m_flags = 0;                  ///< bits of `VEK::MatTreeFlags`
    CVekString m_selMat;                   ///< key that is selected first
    CVekString m_helpFile;                 ///< empty for none
    CVekString m_helpTopicName;            ///< the topic that the help button opens
    CVekString m_result;                   ///< key of the material that was last found good
    CVekArrayTempl<CVekString> m_physKeys; ///< in upper case
    CVekMatTreeCtrl m_tree;
    VEK::CMatMgr m_matMgr;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    afx_msg void OnHelpButton();
    afx_msg void OnSelect(NMHDR* header, LRESULT* result);
    afx_msg void OnDoubleClick(NMHDR* header, LRESULT* result);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSysCommand(UINT id, LPARAM place);
    DECLARE_MESSAGE_MAP()

private:
    void layOut();
    bool check();
};

#endif

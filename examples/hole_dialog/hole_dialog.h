/// @file
/// A dialog for hole patterns that is ready for hosts: the one that `VEK::dlgBgr` asks for. Windows only.
#pragma once

#include "hole_pattern.h"

#include <vek/controls.h>
#include <vek/dialogframe.h>
#include <vek/host.h>
#include <vek/pictures.h>

/// Gives a host the function "mra_hole_dial", which edits the drawing's data object "HOLE" and the name of the active
/// hole in the configuration. Both are changed only after OK. Called by the module that has the dialog's resources.
/// @param host must live as long as its function is called
void holeDialogEnter(CVekLocalApp& host);

/// Shows a pattern with all its holes, and the selected one to be edited: its name, kind, size and place.
class HoleDialog : public CVekDlg
{
    DECLARE_DYNAMIC(HoleDialog)

public:
    /// @param pattern hole file, of which the dialog edits a copy
    /// @param active name of the hole to be selected
    HoleDialog(const CVekDataItem* pattern, const CVekString& active, CWnd* parent);

    /// The copy, and the name of the selected hole; after OK the result.
    const CVekDataItem* pattern() const { return VEK::fileItem(m_file, static_cast<const wchar_t*>(nullptr)); }
    CVekString active() const { return m_active; }

    INT_PTR DoModal() override;
    void addLangRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    afx_msg void OnSelect(NMHDR* header, LRESULT* result);
    afx_msg void OnAdd();
    afx_msg void OnRemove();
    afx_msg void OnName();
    afx_msg void OnKind();
    afx_msg void OnOutline();
    afx_msg void OnValue(UINT id);
    DECLARE_MESSAGE_MAP()

private:
    CVekDataItem* hole() const;
    void fillList(int selected);
    void showHole();
    void showPicture(bool fits);
    CVekString kindText(const CVekDataItem& hole);

    VEK::CUniqPointer<VEK::CDtaFilePointer> m_file;
    CVekDataItem* m_header = nullptr;   ///< of the copy
    CVekDataItem* m_elements = nullptr; ///< of the copy
    std::vector<CVekDataItem*> m_holes; ///< in the order of the list
    CVekString m_active;
    CVekString m_label; ///< in all languages
    int m_shown = -1;   ///< row of the hole that the fields show
    CVekGDX m_gdx;
    CVekDplistImage m_picture;
    CVekListCtrl m_list;
    CVekComboBox m_kind;
    CVekEdit m_labelEdit, m_orderEdit, m_name, m_diameter, m_x, m_y;
};

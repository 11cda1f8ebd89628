/// @file
/// The dialog that selects the groups of standard outlines. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/window/list_ctrl.h>
#include <vek/dialogframe/window/dlg.h>

/// Lets the user select among the groups of standard outlines, see `VEK::outlineGroups`.
class VEK_API CDlgFilterOutline : public CVekDlg
{
    DECLARE_DYNAMIC(CDlgFilterOutline)

public:
    explicit CDlgFilterOutline(CWnd* parent = nullptr);

    void addLangRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;

    /// Bits of the selected groups: the caller sets them before the dialog opens, and reads them after OK. A cancel
    /// leaves them as they were.
    int m_mask = 0;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    CVekListBox m_list;
};

#endif

/// @file
/// The dialog for the unit of a drawing. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/window/list_ctrl.h>
#include <vek/dialogframe/window/dlg.h>
#include <vek/dialogframe/window/dlg_env.h>
#include <vek/values/units.h>

/// Makes the user choose a unit. It cannot be cancelled, and is confirmed only with a unit that has a size.
class VEK_API CVekUnitsDlg : public CVekDlg
{
    DECLARE_DYNAMIC(CVekUnitsDlg)

public:
    explicit CVekUnitsDlg(CWnd* parent = nullptr);

    void addLangRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    /// Does nothing: this is how the system closes dialogs.
    void OnCancel() override {}

    afx_msg void OnSelect();
    DECLARE_MESSAGE_MAP()

    HICON m_icon; ///< belongs to the library
    CVekListBox m_list;

public:
    Vek::lUnit m_unit = Vek::lUnit(0); ///< the selected one; 0, the undefined one, cannot be confirmed
};

namespace VEK
{

/// Makes the user choose a unit.
/// @param unit that is selected at first
/// @return the chosen one; `unit` if the dialog cannot be shown
VEK_API Vek::lUnit dlgUnits(const DlgEnv_st& environment, Vek::lUnit unit);

} // namespace VEK

#endif

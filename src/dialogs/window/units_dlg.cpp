#include <vek/dialogs/window/units_dlg.h>

IMPLEMENT_DYNAMIC(CVekUnitsDlg, CVekDlg)

namespace
{

constexpr int kTemplate = 2000;
constexpr int kIcon = 2000;
constexpr int kList = 1091;

} // namespace

BEGIN_MESSAGE_MAP(CVekUnitsDlg, CVekDlg)
ON_LBN_SELCHANGE(kList, &CVekUnitsDlg::OnSelect)
ON_LBN_DBLCLK(kList, &CVekUnitsDlg::OnOK)
END_MESSAGE_MAP()

CVekUnitsDlg::CVekUnitsDlg(CWnd* parent)
    : CVekDlg(kTemplate, parent),
      m_icon(::LoadIconW(AfxGetStaticModuleState()->m_hCurrentResourceHandle, MAKEINTRESOURCEW(kIcon)))
{
}

void CVekUnitsDlg::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, kList, m_list);
}

void CVekUnitsDlg::addLangRsc()
{
    addText(IDOK, L"VEK_OUTL_0002", L"OK");
}

/// Fills the list, too.
bool CVekUnitsDlg::updLang()
{
    const bool isReplaced = CVekDlg::updLang();
    if (!m_list.m_hWnd)
        return isReplaced;
    const wchar_t* title = GetMsg(L"VEK084", L"Einheit wählen", country());
    SetWindowText(title);
    nameControl(kList, title);
    m_list.ResetContent();
    int unit = 0;
    for (const CVekString& name : VEK::acad_units(country())) {
        const int row = m_list.AddString(name);
        m_list.SetItemData(row, static_cast<DWORD_PTR>(unit));
        if (unit++ == m_unit)
            m_list.SetCurSel(row);
    }
    return isReplaced;
}

BOOL CVekUnitsDlg::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    SetIcon(m_icon, TRUE);
    SetIcon(m_icon, FALSE);
    ::EnableMenuItem(::GetSystemMenu(m_hWnd, FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
    m_list.SetFocus();
    GetDlgItem(IDOK)->EnableWindow(m_unit != 0);
    return FALSE;
}

void CVekUnitsDlg::OnSelect()
{
    const int row = m_list.GetCurSel();
    if (row >= 0)
        m_unit = static_cast<Vek::lUnit>(m_list.GetItemData(row));
    GetDlgItem(IDOK)->EnableWindow(m_unit != 0);
}

/// Return and a double click come here even while the button is disabled.
void CVekUnitsDlg::OnOK()
{
    if (m_unit != 0)
        CVekDlg::OnOK();
}

BOOL CVekUnitsDlg::PreTranslateMessage(MSG* message)
{
    const bool isEscape = message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE;
    return isEscape || CVekDlg::PreTranslateMessage(message);
}

Vek::lUnit VEK::dlgUnits(const DlgEnv_st& environment, Vek::lUnit unit)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    CVekUnitsDlg dialog(environment.parentWnd());
    dialog.SetCountry(environment.country);
    dialog.SetHelpFile(environment.helpFile);
    dialog.SetHelpTopic(environment.helpTopic);
    dialog.m_unit = unit;
    dialog.DoModal();
    return dialog.m_unit;
}

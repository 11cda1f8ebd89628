// The help file of a dialog.
#include <vek/dialogframe/folder.h>
#include <vek/dialogframe/help.h>
#include <vek/dialogframe/window/dlg.h>

#include <afxdlgs.h>

void CVekDlg::showHelpButton(bool show)
{
    const HWND button = m_hWnd ? ::GetDlgItem(m_hWnd, IDHELP) : nullptr;
    if (!button)
        return;
    ::ShowWindow(button, show ? SW_SHOW : SW_HIDE);
    if (show)
        ::EnableWindow(button, !m_helpName.isNull());
}

void CVekDlg::SetHelpFile(const wchar_t* path)
{
    VEK::pathSplit(path, m_helpDir, m_helpName);
    showHelpButton(path != nullptr);
}

void CVekDlg::GetHelpFile(CString& path) const
{
    path = m_helpDir + m_helpName;
}

void CVekDlg::SetHelpTopic(const wchar_t* topic)
{
    m_helpTopic = topic;
}

void CVekDlg::GetHelpTopic(CString& topic) const
{
    topic = m_helpTopic;
}

void CVekDlg::Help(const wchar_t* topic)
{
    VEK::HelpPlan plan;
    const CVekString file = m_helpDir + m_helpName;
    if (!VEK::helpPlanOfDialog(plan, file, topic ? topic : static_cast<const wchar_t*>(m_helpTopic)) ||
        VEK::helpOpen(plan))
        return;
    CFileDialog choice(TRUE, L"chm", file, OFN_FILEMUSTEXIST, L"(*.chm)|*.chm||", this);
    if (choice.DoModal() != IDOK)
        return;
    const CString chosen = choice.GetPathName();
    SetHelpFile(chosen);
    plan.target = chosen;
    plan.isTested = false;
    VEK::helpOpen(plan);
}

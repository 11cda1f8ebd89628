#include "tab_page.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(TabPage, CVekDlg)

BEGIN_MESSAGE_MAP(TabPage, CVekDlg)
ON_BN_CLICKED(IDC_TABS_ENABLE, &TabPage::OnEnable)
ON_BN_CLICKED(IDC_TABS_INSERT, &TabPage::OnInsert)
ON_BN_CLICKED(IDC_TABS_DELETE, &TabPage::OnDelete)
END_MESSAGE_MAP()

TabPage::TabPage(CWnd* parent)
    : CVekDlg(IDD_TABS, parent), m_glass(IDD_TABS_GLASS, this), m_frame(IDD_TABS_FRAME, this),
      m_notes(IDD_TABS_NOTES, this), m_more(IDD_TABS_NOTES, this)
{
}

void TabPage::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_TABS, m_tabs);
}

BOOL TabPage::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    m_tabs.InsertItem(-1, L"Glass", &m_glass, IDD_TABS_GLASS);
    m_tabs.InsertItem(-1, L"Frame", &m_frame, IDD_TABS_FRAME);
    m_tabs.InsertItem(-1, L"Notes", &m_notes, IDD_TABS_NOTES);
    CheckDlgButton(IDC_TABS_ENABLE, BST_CHECKED);
    return FALSE; // the first page has the focus
}

/// The tab of the frame, wherever it is by now.
void TabPage::OnEnable()
{
    unsigned id = 0;
    for (int tab = 0; m_tabs.GetDlgIDD(tab, id); ++tab) {
        if (id == IDD_TABS_FRAME)
            m_tabs.EnableTab(tab, IsDlgButtonChecked(IDC_TABS_ENABLE) == BST_CHECKED);
    }
}

/// There is one page more.
void TabPage::OnInsert()
{
    m_tabs.SetFocus(); // from the button that is disabled
    GetDlgItem(IDC_TABS_INSERT)->EnableWindow(FALSE);
    m_tabs.InsertItem(0, L"More", &m_more, IDD_TABS_NOTES);
}

void TabPage::OnDelete()
{
    m_tabs.DeleteItem(m_tabs.GetCurSel());
}

void TabPage::OnOK()
{
    m_tabs.OnOk();
    CVekDlg::OnOK();
}

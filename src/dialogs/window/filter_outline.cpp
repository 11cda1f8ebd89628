#include <vek/dialogs/outline_groups.h>
#include <vek/dialogs/window/filter_outline.h>

IMPLEMENT_DYNAMIC(CDlgFilterOutline, CVekDlg)

namespace
{

constexpr int kTemplate = 202;
constexpr int kList = 5029;

/// The filter that the rows of a list make, of which there may be none.
int filterOf(CVekListBox& list)
{
    CVekArrayTempl<bool> selected;
    for (int row = 0; row < list.GetCount(); ++row)
        selected.append(list.GetSel(row) > 0);
    return VEK::outlineFilter(selected);
}

} // namespace

CDlgFilterOutline::CDlgFilterOutline(CWnd* parent) : CVekDlg(kTemplate, parent) {}

void CDlgFilterOutline::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, kList, m_list);
}

void CDlgFilterOutline::addLangRsc()
{
    addText(IDCANCEL, L"VEK_OUTL_0001", L"Abbrechen");
    addText(IDOK, L"VEK_OUTL_0002", L"OK");
}

/// Fills the list, too. What the user has selected meanwhile stays selected.
bool CDlgFilterOutline::updLang()
{
    const bool isReplaced = CVekDlg::updLang();
    if (!m_list.m_hWnd)
        return isReplaced;
    const wchar_t* title = GetMsg(L"VEK_OUTL_0100", L"Filter Konturen", nullptr);
    SetWindowText(title);
    nameControl(kList, title);
    const int filter = m_list.GetCount() > 0 ? filterOf(m_list) : m_mask;
    m_list.ResetContent();
    for (const VEK::OutlineGroupText& group : VEK::outlineGroups) {
        const int row = m_list.AddString(GetMsg(group.key, group.builtIn, nullptr));
        m_list.SetSel(row, (filter & group.bit) != 0);
    }
    return isReplaced;
}

BOOL CDlgFilterOutline::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    m_list.SetFocus();
    return FALSE;
}

void CDlgFilterOutline::OnOK()
{
    m_mask = filterOf(m_list);
    CVekDlg::OnOK();
}

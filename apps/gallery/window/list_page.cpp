#include "list_page.h"

#include "resource.h"

#include <vek/dialogframe.h>

IMPLEMENT_DYNAMIC(ListPage, CVekDlg)

BEGIN_MESSAGE_MAP(ListPage, CVekDlg)
ON_BN_CLICKED(IDC_LIST_ALLOW, &ListPage::OnOptions)
ON_BN_CLICKED(IDC_LIST_WRITE, &ListPage::OnOptions)
END_MESSAGE_MAP()

namespace
{

enum Column { kName, kCount, kWidth };

constexpr int kRows = 40; // more than the list shows at once

} // namespace

void ListPage::List::OnInitEditCtrl(LVHITTESTINFO* hit, CVekEdit* edit)
{
    const double most = hit->iSubItem == kCount ? 99 : 6000;
    if (hit->iSubItem != kName)
        edit->setEditFlags(CVekEdit::typeInt, VEK::valueRequired | VEK::valueBounded, 0, 1, most);
}

int ListPage::List::OnAllowEdit(LVHITTESTINFO*)
{
    return isAllowed;
}

int ListPage::List::OnEndItemEdit(CVekEdit*)
{
    return isWanted;
}

ListPage::ListPage(CWnd* parent) : CVekDlg(IDD_LIST, parent) {}

void ListPage::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LIST_CELLS, m_list);
}

BOOL ListPage::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_SUBITEMIMAGES);
    m_images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1);
    m_images.Add(VEK::appIcon());
    m_list.SetImageList(&m_images, LVSIL_SMALL);
    m_list.InsertColumn(kName, L"Part", LVCFMT_LEFT, 120);
    m_list.InsertColumn(kCount, L"Count", LVCFMT_CENTER, 70);
    m_list.InsertColumn(kWidth, L"Width", LVCFMT_RIGHT, 80);
    const wchar_t* const parts[] = {L"Mullion", L"Transom", L"Glass pane", L"Bracket"};
    CString text;
    for (int row = 0; row < kRows; ++row) {
        m_list.InsertItem(row, parts[row % 4], 0);
        text.Format(L"%d", row % 7 + 1);
        m_list.SetItemText(row, kCount, text);
        text.Format(L"%d", 50 + row * 25);
        m_list.SetItemText(row, kWidth, text);
        if (row % 4 == 2)
            m_list.SetItemImage(row, kCount, 0);
    }
    m_list.SetCurSel(0);
    CheckDlgButton(IDC_LIST_ALLOW, BST_CHECKED);
    CheckDlgButton(IDC_LIST_WRITE, BST_CHECKED);
    m_list.SetFocus();
    return FALSE;
}

void ListPage::OnOptions()
{
    m_list.isAllowed = IsDlgButtonChecked(IDC_LIST_ALLOW) == BST_CHECKED;
    m_list.isWanted = IsDlgButtonChecked(IDC_LIST_WRITE) == BST_CHECKED;
}

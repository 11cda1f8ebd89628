#include <vek/controls/tab_order.h>
#include <vek/controls/window/tab_ctrl.h>

#include "dialogframe/window/lives.h"

#include <algorithm>
#include <utility>

using VEK::lives;

namespace
{

constexpr int kFocusMargin = 2; // around the mark of the focus in a tab

} // namespace

IMPLEMENT_DYNAMIC(CVekTabCtrl, CTabCtrl)
IMPLEMENT_DYNAMIC(CVekTabPage, CVekDlg)

BEGIN_MESSAGE_MAP(CVekTabCtrl, CTabCtrl)
ON_WM_HELPINFO()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

// Tabs

int CVekTabCtrl::InsertItem(int position, const wchar_t* text, CDialog* page, unsigned templateId)
{
    if (!page)
        return 0;
    constexpr int behindAll = 65535;
    if (!m_hWnd || !m_tabs.reserve(m_tabs.len() + 1))
        return -1;
    const int tab = CTabCtrl::InsertItem(position < 0 ? behindAll : position, text ? text : L"");
    if (tab < 0)
        return -1;
    m_tabs.append({page, templateId, 0});
    std::rotate(m_tabs.begin() + std::min(tab, m_tabs.len() - 1), m_tabs.end() - 1, m_tabs.end());
    m_curSel = VEK::tabAfterInsertion(m_curSel, tab);
    if (m_curSel < 0)
        SetCurSel(tab);
    else if (GetCurFocus() != m_curSel) // the system moves the mark along, but perhaps not the focus
        mark(m_curSel, tab);
    return tab;
}

int CVekTabCtrl::DeleteItem(int index)
{
    if (index < 0 || index >= m_tabs.len())
        return 0;
    const HWND window = m_hWnd;
    CDialog* const page = m_tabs[index].m_dlg;
    m_tabs.removeAt(index);
    CTabCtrl::DeleteItem(index);
    m_curSel = VEK::tabAfterDeletion(m_curSel, index, m_tabs.len());
    if (::IsChild(page->GetSafeHwnd(), ::GetFocus()))
        SetFocus(); // or it would be nowhere
    page->DestroyWindow();
    if (lives(window, this) && m_curSel >= 0) {
        mark(m_curSel, -1);
        if (CDialog* const next = createdPage(m_curSel))
            next->ShowWindow(SW_SHOW);
    }
    return 1;
}

int CVekTabCtrl::DeleteAllItems()
{
    const HWND window = m_hWnd;
    forgetTabs();
    return lives(window, this) && CTabCtrl::DeleteAllItems();
}

void CVekTabCtrl::forgetTabs()
{
    m_curSel = -1;
    const CVekArrayTempl<CVekTabCtrlData> tabs(std::move(m_tabs)); // a page that ends may end this object too
    for (const CVekTabCtrlData& tab : tabs)
        tab.m_dlg->DestroyWindow();
}

bool CVekTabCtrl::EnableTab(int index, bool enable)
{
    if (index < 0 || index >= m_tabs.len())
        return false;
    unsigned& flags = m_tabs[index].m_flags;
    flags = enable ? flags & ~VEK::tabDisabled : flags | VEK::tabDisabled;
    if (!enable)
        ModifyStyle(0, TCS_OWNERDRAWFIXED); // the system itself knows no disabled tabs
    Invalidate();
    return true;
}

bool CVekTabCtrl::isTabEnabled(int index) const
{
    return index >= 0 && index < m_tabs.len() && (m_tabs[index].m_flags & VEK::tabDisabled) == 0;
}

bool CVekTabCtrl::GetDlgIDD(int index, unsigned& id) const
{
    if (index < 0 || index >= m_tabs.len())
        return false;
    id = m_tabs[index].m_idd;
    return true;
}

CVekArrayTempl<unsigned> CVekTabCtrl::flags() const
{
    CVekArrayTempl<unsigned> flags;
    for (const CVekTabCtrlData& tab : m_tabs)
        flags.append(tab.m_flags);
    return flags;
}

// Pages

int CVekTabCtrl::SetCurSel(int index)
{
    if (index == m_curSel || index < 0 || index >= m_tabs.len())
        return m_curSel;
    if (!isTabEnabled(index))
        return refuse();
    const CVekErrorHandler handler;
    const HWND window = m_hWnd;
    try {
        CDialog* const page = createdPage(index);
        const auto isStill = [&] { // what the pages do meanwhile may change the tabs
            return lives(window, this) && index < m_tabs.len() && m_tabs[index].m_dlg == page && page->m_hWnd;
        };
        if (page && isStill() && m_curSel >= 0)
            m_tabs[m_curSel].m_dlg->ShowWindow(SW_HIDE);
        if (page && isStill()) {
            const int before = std::exchange(m_curSel, index);
            page->ShowWindow(SW_SHOW);
            page->SetFocus();
            return lives(window, this) ? mark(index, before) : -1;
        }
    } catch (unsigned) { // a page that gives up
    }
    return lives(window, this) ? refuse() : -1;
}

/// The page of a tab, with its window.
/// @return null if it cannot be created
CDialog* CVekTabCtrl::createdPage(int index)
{
    const CVekTabCtrlData tab = m_tabs[index];
    if (tab.m_dlg->m_hWnd)
        return tab.m_dlg;
    const HWND window = m_hWnd;
    if (!tab.m_dlg->Create(tab.m_idd, this) || !lives(window, this) || !tab.m_dlg->m_hWnd)
        return nullptr;
    place(*tab.m_dlg, SWP_NOREDRAW);
    return tab.m_dlg;
}

void CVekTabCtrl::place(CDialog& page, UINT flags)
{
    CRect area, first;
    GetClientRect(&area);
    GetItemRect(0, &first);
    const VEK::DlgRect place =
        VEK::tabPageRect({int(area.left), int(area.top), int(area.right), int(area.bottom)}, first.Height());
    page.SetWindowPos(nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                      flags | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Marks a tab and moves the focus among the tabs there. Then once more by way of another one: Wine leaves the focus of
/// a marked tab where it is, and takes a tab for pressed that has lost its mark to the focus; the next click is lost
/// then.
/// @param other the tab that may have had the mark, -1 for none
int CVekTabCtrl::mark(int tab, int other)
{
    SetCurFocus(tab);
    const int result = CTabCtrl::SetCurSel(tab);
    CTabCtrl::SetCurSel(other);
    CTabCtrl::SetCurSel(tab);
    return result;
}

/// Marks the tab whose page is on show, after the user has marked another one.
int CVekTabCtrl::refuse()
{
    if (m_curSel >= 0)
        mark(m_curSel, GetCurSel() == m_curSel ? -1 : GetCurSel());
    return m_curSel;
}

void CVekTabCtrl::OnOk()
{
    const HWND window = m_hWnd;
    for (int i = 0; lives(window, this) && i < m_tabs.len(); ++i) {
        CDialog* const page = m_tabs[i].m_dlg;
        if (const HWND shown = page->m_hWnd) {
            page->UpdateData(TRUE);
            ::SendMessageW(shown, WM_CLOSE, 0, 0);
        }
    }
}

// Messages

BOOL CVekTabCtrl::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_NULL) {
        if (CWnd* const owner = GetOwner())
            owner->PostMessage(WM_CLOSE);
        return TRUE;
    }
    if (message->message != WM_KEYDOWN)
        return CTabCtrl::PreTranslateMessage(message);
    if ((::GetKeyState(VK_CONTROL) & ::GetKeyState(VK_TAB)) < 0) {
        SetCurSel(VEK::nextEnabledTab(flags(), GetCurFocus(), ::GetKeyState(VK_SHIFT) < 0));
        return TRUE;
    }
    return message->wParam == VK_ESCAPE || CTabCtrl::PreTranslateMessage(message);
}

/// Leaves the help of the page and of the dialog alone.
BOOL CVekTabCtrl::OnHelpInfo(HELPINFO* info)
{
    return CTabCtrl::OnHelpInfo(info);
}

void CVekTabCtrl::OnSize(UINT type, int width, int height)
{
    const HWND window = m_hWnd;
    CTabCtrl::OnSize(type, width, height);
    for (int i = 0; lives(window, this) && i < m_tabs.len(); ++i) {
        if (m_tabs[i].m_dlg->m_hWnd)
            place(*m_tabs[i].m_dlg, 0);
    }
}

/// Draws the image and the text of a tab as the system does, but those of a disabled one in grey.
void CVekTabCtrl::DrawItem(LPDRAWITEMSTRUCT request)
{
    wchar_t text[256] = L"";
    TCITEM tab = {};
    tab.mask = TCIF_TEXT | TCIF_IMAGE;
    tab.pszText = text;
    tab.cchTextMax = 256;
    const int index = static_cast<int>(request->itemID);
    GetItem(index, &tab);
    const HDC dc = request->hDC;
    const int state = ::SaveDC(dc);
    CRect area(request->rcItem);
    const auto images = reinterpret_cast<HIMAGELIST>(SendMessage(TCM_GETIMAGELIST));
    int width = 0, height = 0;
    if (tab.iImage >= 0 && ::ImageList_GetIconSize(images, &width, &height)) {
        const int gap = ::GetSystemMetrics(SM_CXEDGE) * 2;
        ::ImageList_Draw(images, tab.iImage, dc, area.left + gap, area.top + (area.Height() - height) / 2,
                         ILD_TRANSPARENT);
        area.left += gap + width;
    }
    if (CFont* const font = GetFont())
        ::SelectObject(dc, *font);
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, ::GetSysColor(isTabEnabled(index) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    ::DrawTextW(dc, text, -1, area, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    const bool hidesFocus = (SendMessage(WM_QUERYUISTATE) & UISF_HIDEFOCUS) != 0;
    if (::GetFocus() == m_hWnd && index == GetCurFocus() && !hidesFocus) {
        area = request->rcItem;
        area.DeflateRect(kFocusMargin, kFocusMargin);
        ::DrawFocusRect(dc, area);
    }
    ::RestoreDC(dc, state);
}

void CVekTabCtrl::OnDestroy()
{
    CTabCtrl::OnDestroy();
    forgetTabs();
}

void CVekTabCtrl::OnLButtonDown(UINT flags, CPoint point)
{
    const HWND window = m_hWnd;
    CTabCtrl::OnLButtonDown(flags, point);
    if (lives(window, this))
        SetCurSel(GetCurSel());
}

/// The arrow keys: the page follows, disabled tabs are passed over, and the focus stays on the tabs.
void CVekTabCtrl::OnKeyDown(UINT key, UINT repeat, UINT keyFlags)
{
    const HWND window = m_hWnd;
    CTabCtrl::OnKeyDown(key, repeat, keyFlags);
    if (!lives(window, this) || GetCurSel() == m_curSel)
        return;
    const int marked = GetCurSel();
    const bool isBackward = marked < m_curSel;
    const int next = isTabEnabled(marked) ? marked : VEK::nextEnabledTab(flags(), marked, isBackward);
    if ((next < m_curSel) == isBackward)
        SetCurSel(next);
    if (lives(window, this)) {
        refuse();
        SetFocus();
    }
}

CVekTabPage::CVekTabPage(int nIDTemplate, CWnd* parent) : CVekDlg(nIDTemplate, parent) {}

BOOL CVekTabPage::OnInitDialog()
{
    HWND around = ::GetParent(m_hWnd);
    if (DYNAMIC_DOWNCAST(CTabCtrl, FromHandlePermanent(around)))
        around = ::GetParent(around);
    m_parentDlg = FromHandlePermanent(around);
    if (const auto dialog = DYNAMIC_DOWNCAST(CVekDlg, m_parentDlg)) {
        CString text;
        dialog->GetHelpFile(text);
        SetHelpFile(text);
        dialog->GetHelpTopic(text);
        SetHelpTopic(text);
        SetCountry(dialog->country());
    }
    CVekDlg::OnInitDialog();
    return FALSE;
}

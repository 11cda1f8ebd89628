#include <vek/dialogs/window/label_edit.h>
#include <vek/values/country.h>

#include "dialogframe/window/lives.h"
#include "label_store.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CVekLabelEditLst, CVekListCtrl)

namespace
{

constexpr int kEditor = 1025; // of the base class
constexpr int kLines = 1027, kPaste = 1028, kCopy = 1029;
constexpr int kFirstIcon = 2004, kIcons = 2, kIconSize = 16;
constexpr int kNameWidth = 100, kMargin = 6; // at 96 dots an inch
constexpr int kHoverTime = 500;
constexpr int kText = 1; // the column

/// Pixels on the monitor of a window from pixels at 96 dots an inch.
int scaled(int pixels, HWND window)
{
    return MulDiv(pixels, static_cast<int>(::GetDpiForWindow(window)), 96);
}

} // namespace

BEGIN_MESSAGE_MAP(CVekLabelEditLst, CVekListCtrl)
ON_WM_MEASUREITEM_REFLECT()
ON_WM_SIZE()
ON_WM_CONTEXTMENU()
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &CVekLabelEditLst::OnCustomDraw)
ON_EN_KILLFOCUS(kEditor, &CVekLabelEditLst::OnLabelEditKillFocus)
ON_COMMAND(kLines, &CVekLabelEditLst::OnLines)
ON_COMMAND(kPaste, &CVekLabelEditLst::OnPaste)
ON_COMMAND(kCopy, &CVekLabelEditLst::OnCopy)
END_MESSAGE_MAP()

void CVekLabelEditLst::PreSubclassWindow()
{
    CVekListCtrl::PreSubclassWindow();
    SetExtendedStyle(LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT | LVS_EX_TRACKSELECT);
    m_images.Create(kIconSize, kIconSize, ILC_COLOR32 | ILC_MASK, kIcons, 1);
    for (int i = 0; i < kIcons; ++i)
        m_images.Add(
            ::LoadIconW(AfxGetStaticModuleState()->m_hCurrentResourceHandle, MAKEINTRESOURCEW(kFirstIcon + i)));
    SetImageList(&m_images, LVSIL_SMALL);
    CRect area;
    GetClientRect(&area);
    InsertColumn(0, L"", LVCFMT_LEFT, scaled(kNameWidth, m_hWnd));
    InsertColumn(kText, L"", LVCFMT_LEFT, 0, kText);
    fitText(area.Width());
    SendMessage(LVM_SETHOVERTIME, 0, kHoverTime);
}

void CVekLabelEditLst::OnSize(UINT type, int width, int height)
{
    CVekListCtrl::OnSize(type, width, height);
    fitText(width);
}

/// Gives the texts what the names leave of the list's width.
void CVekLabelEditLst::fitText(int width)
{
    SetColumnWidth(kText, std::max(width - GetColumnWidth(0) - scaled(kMargin, m_hWnd), 0));
}

// Rows

VEK::LabelRow CVekLabelEditLst::row(int index) const
{
    return {CVekString(GetItemText(index, kText)), m_lineKinds[index]};
}

VEK::LabelRows CVekLabelEditLst::rows() const
{
    VEK::LabelRows all;
    for (int i = 0; i < GetItemCount(); ++i)
        all.append(row(i));
    return all;
}

void CVekLabelEditLst::show(int index, const VEK::LabelRow& row)
{
    m_lineKinds[index] = row.lineKind;
    SetItemImage(index, 0, row.lineKind);
    SetItemText(index, kText, row.text);
}

void CVekLabelEditLst::setLabel(const wchar_t* label, const wchar_t* language)
{
    const vek_country_st* languages = VEK::dlCountries();
    const CVekString selected = language ? language : languages[std::max(GetCurSel(), 0)].id;
    const VEK::LabelRows all = VEK::labelRows(label, selected, m_multi);
    for (int i = 0; i < all.len(); ++i) {
        if (i >= GetItemCount())
            InsertItem(i, languages[i].name);
        show(i, all[i]);
        SetItemData(i, static_cast<DWORD_PTR>(i));
        if (selected.compareNoCase(languages[i].id) == 0)
            SetCurSel(i);
    }
    measure();
}

bool CVekLabelEditLst::getLabel(CVekString& label) const
{
    const unsigned long shortages = VEK::memoryShortages();
    const VEK::LabelRows all = rows();
    return VEK::memoryShortages() == shortages && VEK::labelOfRows(label, all);
}

// Height. A list asks for the height of its rows only as one that is drawn by its owner, and when its size changes; so
// it is one for that moment.

void CVekLabelEditLst::measure()
{
    if (!m_multi)
        return;
    ModifyStyle(0, LVS_OWNERDRAWFIXED);
    CRect area;
    GetWindowRect(&area);
    WINDOWPOS same = {};
    same.hwnd = m_hWnd;
    same.cx = area.Width();
    same.cy = area.Height();
    same.flags = SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOOWNERZORDER | SWP_NOZORDER;
    SendMessage(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&same));
    EnsureVisible(GetCurSel(), FALSE);
}

void CVekLabelEditLst::MeasureItem(LPMEASUREITEMSTRUCT item)
{
    item->itemHeight = static_cast<UINT>(scaled(VEK::labelRowHeight(rows()), m_hWnd));
    ModifyStyle(LVS_OWNERDRAWFIXED, 0);
}

void CVekLabelEditLst::DrawItem(LPDRAWITEMSTRUCT)
{
    ModifyStyle(LVS_OWNERDRAWFIXED, 0);
    Invalidate();
}

/// A list draws a text in one line.
void CVekLabelEditLst::OnCustomDraw(NMHDR* header, LRESULT* result)
{
    const NMLVCUSTOMDRAW& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(header);
    const int index = static_cast<int>(draw.nmcd.dwItemSpec);
    *result = CDRF_DODEFAULT;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT && m_multi)
        *result = CDRF_NOTIFYITEMDRAW;
    else if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT)
        *result = m_lineKinds[index] ? CDRF_NOTIFYSUBITEMDRAW : CDRF_DODEFAULT;
    if (draw.nmcd.dwDrawStage != (CDDS_ITEMPREPAINT | CDDS_SUBITEM) || draw.iSubItem != kText)
        return;
    *result = CDRF_SKIPDEFAULT;
    CDC& dc = *CDC::FromHandle(draw.nmcd.hdc);
    CRect area;
    GetSubItemRect(index, kText, LVIR_LABEL, area);
    const bool isSelected = GetItemState(index, LVIS_SELECTED) != 0, isActive = isSelected && GetFocus() == this;
    dc.FillSolidRect(&area, ::GetSysColor(isActive ? COLOR_HIGHLIGHT : isSelected ? COLOR_BTNFACE : COLOR_WINDOW));
    dc.SetTextColor(::GetSysColor(isActive ? COLOR_HIGHLIGHTTEXT : isSelected ? COLOR_BTNTEXT : COLOR_WINDOWTEXT));
    area.DeflateRect(kMargin, 1);
    dc.DrawText(GetItemText(index, kText), area, DT_LEFT | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// Editing

int CVekLabelEditLst::OnAllowEdit(LVHITTESTINFO* hit)
{
    return hit->iItem >= 0 && hit->iItem < GetItemCount() && hit->iSubItem == kText;
}

/// The editor has one line: it shows a sign for each line feed, which becomes one again.
void CVekLabelEditLst::OnInitEditCtrl(LVHITTESTINFO*, CVekEdit* edit)
{
    CString text;
    edit->GetWindowText(text);
    edit->SetWindowText(VEK::labelFieldText(text));
}

int CVekLabelEditLst::OnEndItemEdit(CVekEdit* edit)
{
    CString text;
    edit->GetWindowText(text);
    SetItemText(GetCurSel(), kText, text);
    measure();
    return 0;
}

void CVekLabelEditLst::OnLabelEditKillFocus()
{
    const HWND window = m_hWnd;
    const int index = m_item;
    OnEditKillFocus();
    if (!VEK::lives(window, this) || !m_multi || index < 0 || index >= GetItemCount())
        return;
    VEK::LabelRow edited = row(index);
    VEK::labelRowEdited(edited);
    show(index, edited);
}

// The context menu

void CVekLabelEditLst::OnContextMenu(CWnd*, CPoint point)
{
    const int index = GetCurSel();
    if (index < 0)
        return;
    CMenu menu;
    menu.CreatePopupMenu();
    if (m_multi && m_lineKinds[index])
        menu.AppendMenu(MF_STRING, kLines, GetMsg(L"VEK_MFC_0006", L"Einzeilig", nullptr));
    else if (m_multi)
        menu.AppendMenu(MF_STRING, kLines, GetMsg(L"VEK_MFC_0007", L"Mehrzeilig", nullptr));
    VEK::RegistryLabelStore store;
    CVekString stored;
    if (VEK::labelPaste(store, m_multi, stored))
        menu.AppendMenu(MF_STRING, kPaste, GetMsg(L"VEK_MFC_0005", L"Einfügen", nullptr));
    menu.AppendMenu(MF_STRING, kCopy, GetMsg(L"VEK_MFC_0004", L"Kopieren", nullptr));
    if (point.x == -1 && point.y == -1) { // by the keyboard
        CRect label;
        GetSubItemRect(index, kText, LVIR_LABEL, label);
        point = CPoint(label.left, label.bottom);
        ClientToScreen(&point);
    }
    menu.TrackPopupMenu(TPM_LEFTALIGN, point.x, point.y, this);
}

void CVekLabelEditLst::OnLines()
{
    const int index = GetCurSel();
    if (index < 0)
        return;
    VEK::LabelRow changed = row(index);
    VEK::labelRowToggle(changed);
    show(index, changed);
    measure();
}

void CVekLabelEditLst::OnPaste()
{
    VEK::RegistryLabelStore store;
    CVekString label;
    if (VEK::labelPaste(store, m_multi, label))
        setLabel(label, nullptr);
}

void CVekLabelEditLst::OnCopy()
{
    VEK::RegistryLabelStore store;
    VEK::labelCopy(store, rows());
}

#include <vek/controls/cell_editor.h>
#include <vek/controls/window/list_ctrl.h>
#include <vek/dialogframe/window/dlg.h>

#include "dialogframe/window/lives.h"

#include <new>

using VEK::lives;

namespace
{

constexpr int kEditId = 1025;

} // namespace

IMPLEMENT_DYNAMIC(CVekListCtrl, CListCtrl)
IMPLEMENT_DYNAMIC(CVekListBox, CListBox)

BEGIN_MESSAGE_MAP(CVekListCtrl, CListCtrl)
ON_WM_LBUTTONDOWN()
ON_WM_KILLFOCUS()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
ON_EN_KILLFOCUS(kEditId, &CVekListCtrl::OnEditKillFocus)
END_MESSAGE_MAP()

/// The editor of a cell. Escape leaves the cell as it was, and the dialog around the list open.
class CVekListCtrl::CellEdit final : public CVekEdit
{
public:
    explicit CellEdit(CVekListCtrl& list) : m_list(list) {}

    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message != WM_KEYDOWN || message->wParam != VK_ESCAPE)
            return CVekEdit::PreTranslateMessage(message);
        SetModify(FALSE);
        m_list.EndItemEdit(); // deletes this object
        return TRUE;
    }

private:
    CVekListCtrl& m_list;
};

CVekListCtrl::CVekListCtrl() = default;

CVekListCtrl::~CVekListCtrl() = default;

void CVekListCtrl::OnInitEditCtrl(LVHITTESTINFO*, CVekEdit*) {}

int CVekListCtrl::OnAllowEdit(LVHITTESTINFO*)
{
    return 0;
}

int CVekListCtrl::OnEndItemEdit(CVekEdit*)
{
    return 0;
}

void CVekListCtrl::OnDestroyEditCtrl(CVekEdit*) {}

const wchar_t* CVekListCtrl::GetMsg(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language)
{
    CVekDlg* const dialog = DYNAMIC_DOWNCAST(CVekDlg, GetParent());
    return dialog ? dialog->GetMsg(key, builtIn, language) : builtIn;
}

// Rows

int CVekListCtrl::GetCurSel() const
{
    return GetNextItem(-1, LVNI_SELECTED);
}

int CVekListCtrl::SetCurSel(int row)
{
    if (row < 0 || row >= GetItemCount())
        return 0;
    EnsureVisible(row, TRUE);
    SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return 1;
}

BOOL CVekListCtrl::SetItemImage(int row, int column, int image)
{
    return SetItem(row, column, LVIF_IMAGE, nullptr, image, 0, 0, 0);
}

// The editor

int CVekListCtrl::BeginItemEdit(LVHITTESTINFO* hit)
{
    const CVekErrorHandler handler;
    const HWND window = m_hWnd;
    EndItemEdit();
    try {
        return hit && lives(window, this) && openEditor(*hit);
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
        return 0;
    }
}

bool CVekListCtrl::openEditor(LVHITTESTINFO& hit)
{
    const HWND window = m_hWnd;
    CRect label, icon;
    if (!GetSubItemRect(hit.iItem, hit.iSubItem, LVIR_LABEL, label))
        return false;
    LVITEM cell = {};
    cell.mask = LVIF_IMAGE;
    cell.iItem = hit.iItem;
    cell.iSubItem = hit.iSubItem;
    // In the first column the label begins behind the icon already.
    const bool hasIcon = hit.iSubItem > 0 && GetItem(&cell) && cell.iImage >= 0 &&
                         GetSubItemRect(hit.iItem, hit.iSubItem, LVIR_ICON, icon);
    const VEK::DlgRect place = VEK::cellEditorRect(
        {int(label.left), int(label.top), int(label.right), int(label.bottom)}, hasIcon ? icon.Width() : 0);
    HDITEM column = {};
    column.mask = HDI_FORMAT;
    if (CHeaderCtrl* const header = GetHeaderCtrl())
        header->GetItem(hit.iSubItem, &column);
    const CString text = GetItemText(hit.iItem, hit.iSubItem);

    VEK::CUniqPointer<CVekEdit> edit(new (std::nothrow) CellEdit(*this));
    if (!edit || !edit->Create(VEK::cellEditorStyle(column.fmt),
                               CRect(place.left, place.top, place.right, place.bottom), this, kEditId))
        return false;
    CVekEdit* const opened = edit;
    m_item = hit.iItem;
    m_subItem = hit.iSubItem;
    m_edit = std::move(edit);
    opened->SetFont(GetFont());
    opened->SetWindowText(text);
    OnInitEditCtrl(&hit, opened);
    if (!lives(window, this) || m_edit != opened)
        return false;
    opened->SetFocus();
    if (lives(window, this) && m_edit == opened)
        opened->SetSel(0, -1);
    return true;
}

/// Closes the editor. One that has the focus loses it first, so that it checks its text and the list writes it.
bool CVekListCtrl::EndItemEdit()
{
    if (!m_edit || m_ending)
        return false;
    const HWND window = m_hWnd;
    CVekEdit* const closed = m_edit;
    m_ending = true;
    if (::GetFocus() == closed->m_hWnd)
        SetFocus();
    if (lives(window, this) && m_edit == closed) { // and none was opened instead
        const VEK::CUniqPointer<CVekEdit> edit(std::move(m_edit));
        edit->DestroyWindow();
        if (lives(window, this))
            OnDestroyEditCtrl(edit);
    }
    if (lives(window, this))
        m_ending = false;
    return true;
}

/// The end of an editor may be the end of the list.
/// @return whether the list is still there
bool CVekListCtrl::closeEditor()
{
    const HWND window = m_hWnd;
    EndItemEdit();
    return lives(window, this);
}

/// The editor is in the midst of its own handling of the message, and ends in here.
void CVekListCtrl::OnEditKillFocus()
{
    const HWND window = m_hWnd;
    const HWND editor = m_edit ? m_edit->m_hWnd : nullptr;
    if (editor && m_edit->GetModify()) {
        const int row = m_item, column = m_subItem;
        CString text;
        m_edit->GetWindowText(text);
        const bool isWanted = OnEndItemEdit(m_edit) != 0;
        if (!lives(window, this))
            return;
        if (isWanted)
            SetItemText(row, column, text);
    }
    const bool isStillOpen = m_edit && m_edit->m_hWnd == editor; // and none was opened instead
    if (isStillOpen && !closeEditor())
        return;
    const HWND focus = ::GetFocus();
    if (focus != window && !(m_edit && focus == m_edit->m_hWnd) && closeEditor())
        Default();
}

// Messages

void CVekListCtrl::OnLButtonDown(UINT flags, CPoint point)
{
    if (m_edit && m_edit->m_hWnd) {
        EndItemEdit();
        return;
    }
    m_clickPt = point;
    LVHITTESTINFO hit = {};
    hit.pt = point;
    SubItemHitTest(&hit);
    const bool isOnContent = (hit.flags & (LVHT_ONITEMICON | LVHT_ONITEMLABEL)) != 0;
    const HWND window = m_hWnd;
    const bool edits = VEK::clickOpensEditor(GetCurSel(), hit.iItem, isOnContent) && OnAllowEdit(&hit) != 0;
    if (!lives(window, this))
        return;
    if (!edits)
        return CListCtrl::OnLButtonDown(flags, point);
    m_ending = true;
    CListCtrl::OnLButtonDown(flags, point);
    if (!lives(window, this))
        return;
    Invalidate();
    EnsureVisible(hit.iItem, FALSE);
    BeginItemEdit(&hit);
    if (lives(window, this))
        m_ending = false;
}

/// While the editor has the focus the list looks as if it had it itself.
void CVekListCtrl::OnKillFocus(CWnd* to)
{
    const bool isToEditor = to && m_edit && to->m_hWnd == m_edit->m_hWnd;
    if (!isToEditor && closeEditor())
        CListCtrl::OnKillFocus(to);
}

// An open editor would not follow the rows and columns.

void CVekListCtrl::OnHScroll(UINT code, UINT position, CScrollBar* bar)
{
    if (closeEditor())
        CListCtrl::OnHScroll(code, position, bar);
}

void CVekListCtrl::OnVScroll(UINT code, UINT position, CScrollBar* bar)
{
    if (closeEditor())
        CListCtrl::OnVScroll(code, position, bar);
}

BOOL CVekListCtrl::OnMouseWheel(UINT flags, short delta, CPoint point)
{
    return closeEditor() ? CListCtrl::OnMouseWheel(flags, delta, point) : TRUE;
}

BOOL CVekListCtrl::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    const bool movesColumns = code == HDN_BEGINTRACKW || code == HDN_BEGINTRACKA || code == HDN_DIVIDERDBLCLICKW ||
                              code == HDN_DIVIDERDBLCLICKA || code == HDN_BEGINDRAG;
    return movesColumns && !closeEditor() ? TRUE : CListCtrl::OnNotify(wParam, lParam, result);
}

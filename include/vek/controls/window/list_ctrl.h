/// @file
/// Lists whose cells the user edits in place. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/window/edit.h>
#include <vek/values/pointer.h>

#include <afxcmn.h>

/// A list in report view. A click on the text or the icon of a cell in the selected row opens an editor over it, if
/// the derived class allows that. The editor closes when it loses the focus, when the list scrolls and at the next
/// click in the list, which does nothing else; what the user has changed is written to the cell, if the derived class
/// wants it. Escape closes it, too, and nothing is written.
class VEK_API CVekListCtrl : public CListCtrl
{
    DECLARE_DYNAMIC(CVekListCtrl)

public:
    CVekListCtrl();
    ~CVekListCtrl() override;

    /// Sets up an editor that is about to open: it has its place, its font and the text of the cell.
    virtual void OnInitEditCtrl(LVHITTESTINFO* hit, CVekEdit* edit);

    /// Whether a cell may be edited.
    /// @return 0 for no, as a plain list says of every cell
    virtual int OnAllowEdit(LVHITTESTINFO* hit);

    /// What becomes of a changed text, which the editor has checked.
    /// @return 0 if the cell keeps its text, as in a plain list; otherwise it gets the editor's
    virtual int OnEndItemEdit(CVekEdit* edit);

    /// Called when an editor is closed, before its object is deleted. It has no window any more.
    virtual void OnDestroyEditCtrl(CVekEdit* edit);

    /// The text of a key, as the dialog around the list has it.
    /// @param language null for the dialog's
    /// @return the built-in text if the list is not directly in a `CVekDlg`; see there how long it is valid
    virtual const wchar_t* GetMsg(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language);

    /// Opens the editor over a cell, and closes one that is open.
    /// @param hit with row and column
    /// @return 1; 0 if there is no such cell, or no editor can be created
    int BeginItemEdit(LVHITTESTINFO* hit);

    /// The first selected row, -1 for none.
    int GetCurSel() const;

    /// Selects a row, from which the arrow keys go on, and scrolls until at least a part of it can be seen. Other rows
    /// stay selected, unless the list has the style `LVS_SINGLESEL`.
    /// @return 1; 0 for a row out of range
    int SetCurSel(int row);

    /// Sets the image of a cell.
    /// @return whether there is such a cell
    BOOL SetItemImage(int row, int column, int image);

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnKillFocus(CWnd* to);
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    afx_msg void OnEditKillFocus();
    DECLARE_MESSAGE_MAP()

    CPoint m_clickPt;                   ///< the last click in client pixels, other than those that closed an editor
    VEK::CUniqPointer<CVekEdit> m_edit; ///< the open editor, null for none
    int m_item = -1;                    ///< its row, set while it is open
    int m_subItem = -1;                 ///< its column, set while it is open
    bool m_ending = false;              ///< whether an editor is being opened or closed

private:
    class CellEdit;

    bool EndItemEdit();
    bool closeEditor();
    bool openEditor(LVHITTESTINFO& hit);
};

/// A list box that dialogs can tell from other controls by its class.
class VEK_API CVekListBox : public CListBox
{
    DECLARE_DYNAMIC(CVekListBox)
};

#endif

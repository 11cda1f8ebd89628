/// @file
/// Tabs that each have a page, a dialog within the control. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/dialogframe/window/dlg.h>
#include <vek/values/array.h>

#include <afxcmn.h>

/// A tab and its page.
struct CVekTabCtrlData {
    CDialog* m_dlg = nullptr;                       ///< not owned
    unsigned int m_idd = static_cast<unsigned>(-1); ///< id of its template
    unsigned int m_flags = 0;                       ///< see `VEK::tabDisabled`
};

/// Tabs whose pages are created when they are first shown, and fill the control whatever its size. A tab can be
/// disabled: it is grey, Ctrl+Tab, which works within the pages too, skips it, and a click on it changes nothing.
///
/// The pages belong to the caller. They must live as long as the control's window, which destroys theirs with its own;
/// the tabs are then forgotten.
class VEK_API CVekTabCtrl : public CTabCtrl
{
    DECLARE_DYNAMIC(CVekTabCtrl)

public:
    CVekTabCtrl() = default;

    /// Adds a tab; if none is selected, it is selected and its page shown.
    /// @param position of the new tab; it is added at the end if this is negative or not less than the number of tabs
    /// @param page null adds nothing
    /// @param templateId of the page, from which it is created
    /// @return index of the new tab; 0 without a page; -1 if it cannot be added
    virtual int InsertItem(int position, const wchar_t* text, CDialog* page, unsigned templateId);

    /// Removes a tab and destroys the window of its page. After the selected one, the tab that took its place is
    /// selected and its page shown, or else the last one.
    /// @return 1; 0 for an index out of range
    virtual int DeleteItem(int index);

    /// Removes all tabs and destroys the windows of their pages.
    /// @return whether the tabs were removed
    virtual int DeleteAllItems();

    /// Selects a tab, shows its page and gives it the focus. If the page cannot be created, everything stays as it was.
    /// @return the tab that is marked as selected by then, as the system gives it; for a tab that is selected, disabled
    /// or out of range, and for one whose page cannot be created, the tab that stays selected, -1 for none
    int SetCurSel(int index);

    /// Enables or disables a tab. The selected one stays selected. From the first time that one is disabled, the
    /// control has the style `TCS_OWNERDRAWFIXED`, for `DrawItem`.
    /// @return false for an index out of range
    bool EnableTab(int index, bool enable);

    /// @return false also for an index out of range
    bool isTabEnabled(int index) const;

    /// Gets the template id of a page.
    /// @return false, with `id` unchanged, for an index out of range
    bool GetDlgIDD(int index, unsigned& id) const;

    /// For the OK button of the dialog around: lets every page that has a window take over the values of its controls
    /// and closes it, with `UpdateData` and `WM_CLOSE`.
    void OnOk();

    /// Handles Ctrl+Tab and Ctrl+Shift+Tab, swallows Escape, and on the message 0 closes the window that owns the
    /// control.
    BOOL PreTranslateMessage(MSG* message) override;

    void DrawItem(LPDRAWITEMSTRUCT request) override;

protected:
    afx_msg BOOL OnHelpInfo(HELPINFO* info);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnKeyDown(UINT key, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

    int m_curSel = -1; ///< the tab whose page is on show, -1 for none
    CVekArrayTempl<CVekTabCtrlData> m_tabs;

private:
    CVekArrayTempl<unsigned> flags() const;
    CDialog* createdPage(int index);
    void place(CDialog& page, UINT flags);
    int mark(int tab, int other);
    int refuse();
    void forgetTabs();
};

/// A page of a `CVekTabCtrl`. It starts with the help file, help topic and language of the dialog around the tabs.
class VEK_API CVekTabPage : public CVekDlg
{
    DECLARE_DYNAMIC(CVekTabPage)

public:
    CVekTabPage(int nIDTemplate, CWnd* parent);

    /// @return false: the page sets the focus
    BOOL OnInitDialog() override;

protected:
    /// Does nothing: Escape must not hide a page.
    void OnCancel() override {}

    CWnd* m_parentDlg = nullptr; ///< the dialog around the tabs; null before the window exists
};

#endif

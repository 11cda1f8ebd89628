/// @file
/// Dialogs made from templates.
#pragma once

#include <toolkit/controls.h>
#include <toolkit/exchange.h>

/// The type of the resource with the initial rows of a dialog's list and combo boxes.
#define RT_DLGINIT MAKEINTRESOURCE(240)

class AFX_EXPORTED CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)
    DECLARE_MESSAGE_MAP()

public:
    /// For a modeless dialog, or a modal one from a template in memory.
    CDialog() = default;
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    /// @name Modeless
    /// The dialog lives until DestroyWindow; OnOK and OnCancel only hide it. Without a parent the main window owns it.
    /// FALSE if it cannot be created, or if OnInitDialog ends it, which destroys it.
    /// @{
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr)
    {
        return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
    }
    virtual BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr,
                                void* lpDialogInit = nullptr);
    /// @}

    /// @name Modal
    /// @{
    /// The template must live until DoModal returns.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr, void* lpDialogInit = nullptr);
    /// Shows the dialog over its parent, which is disabled meanwhile, and runs until EndDialog, whose value is
    /// returned. -1 if the dialog cannot be created or its window is destroyed otherwise.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);
    /// @}

    void MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
    void NextDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 0, FALSE); }
    void PrevDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 1, FALSE); }
    void SetDefID(UINT nID) { SendMessage(DM_SETDEFID, nID); }
    DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }

    /// Called before the dialog is shown; fills the controls, from the resource RT_DLGINIT of the template's name and
    /// then by UpdateData. False if it has set the focus itself. Afterwards a dialog that neither its template nor a
    /// handler has positioned is centred on its owner.
    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Commands that the dialog does not handle go to its parent, then to the application object.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    /// Reads the values into the members, unless one is invalid, and ends with IDOK.
    virtual void OnOK();
    virtual void OnCancel();

    LPCTSTR m_lpszTemplateName = nullptr;
    LPCDLGTEMPLATE m_lpDialogTemplate = nullptr;
    void* m_lpDialogInit = nullptr; ///< in place of RT_DLGINIT, for a template in memory
    CWnd* m_pParentWnd = nullptr;

private:
    BOOL createFrom(LPCDLGTEMPLATE source, HWND parent, HINSTANCE module);
    int runModal(LPCDLGTEMPLATE source, HINSTANCE module);
};

/// @file
/// Dialogs made from templates, and the exchange of values between their controls and their members.
#pragma once

#include <toolkit/controls.h>

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
    /// The dialog lives until DestroyWindow; OnOK and OnCancel only hide it.
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
    /// The template must live until DoModal has ended.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr, void* lpDialogInit = nullptr);
    /// Shows the dialog over its parent, which is disabled for that time, and runs until EndDialog, whose value is the
    /// result. -1 when the dialog cannot be made or its window is destroyed otherwise.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);
    /// @}

    void MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
    void NextDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 0, FALSE); }
    void PrevDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 1, FALSE); }
    void SetDefID(UINT nID) { SendMessage(DM_SETDEFID, nID); }
    DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }

    /// Called before the dialog shows; fills the controls by UpdateData. False when it has set the focus itself.
    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Commands that the dialog does not handle go to its parent, then to the application object.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    /// Takes the values over, unless one is refused, and ends with IDOK.
    virtual void OnOK();
    virtual void OnCancel();

    LPCTSTR m_lpszTemplateName = nullptr;
    LPCDLGTEMPLATE m_lpDialogTemplate = nullptr;
    CWnd* m_pParentWnd = nullptr;

private:
    BOOL createFrom(LPCDLGTEMPLATE source, HWND parent, HINSTANCE module);
};

/// One exchange of values. A routine prepares the control that it works on, and calls Fail for a value that it refuses:
/// the control gets the focus, and UpdateData gives false.
class AFX_EXPORTED CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate) : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}

    BOOL m_bSaveAndValidate; ///< from the controls to the members
    CWnd* m_pDlgWnd;

    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    [[noreturn]] void Fail();

private:
    HWND m_last = nullptr;
    bool m_lastIsEdit = false;
};

/// @name Exchange
/// @{
/// Subclasses the control in the first exchange.
AFX_EXPORTED void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
/// A number that does not read is told to the user and refused.
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
AFX_EXPORTED void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
/// The id is that of the first button, which has WS_GROUP; -1 stands for none.
AFX_EXPORTED void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
AFX_EXPORTED void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_EXPORTED void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);
/// @}

/// @name Validation
/// Follows the exchange of the same control. A value outside is told to the user and refused.
/// @{
AFX_EXPORTED void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal);
AFX_EXPORTED void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
/// @}

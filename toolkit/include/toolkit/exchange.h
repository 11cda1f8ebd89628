/// @file
/// The exchange of values between a window's controls and its members, and their validation.
#pragma once

#include <toolkit/controls.h>

/// @name Messages about invalid values
/// Numbers of string resources; %1 and %2 are the bounds.
/// @{
#define AFX_IDP_PARSE_INT 0xF110
#define AFX_IDP_PARSE_REAL 0xF111
#define AFX_IDP_PARSE_INT_RANGE 0xF112
#define AFX_IDP_PARSE_REAL_RANGE 0xF113
#define AFX_IDP_PARSE_STRING_SIZE 0xF114
#define AFX_IDP_PARSE_BYTE 0xF116
#define AFX_IDP_PARSE_UINT 0xF117
/// @}

/// One exchange of values. A routine prepares the control that it works on, and calls Fail for an invalid value: the
/// control gets the focus, and UpdateData returns false.
class AFX_EXPORTED CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate) : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}

    BOOL m_bSaveAndValidate; ///< true: from the controls to the members
    CWnd* m_pDlgWnd;
    BOOL m_bEditLastControl = FALSE; ///< whether the last prepared control is a text field
    int m_idLastControl = 0;

    /// Throws CNotSupportedException if there is no such control.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    [[noreturn]] void Fail();
};

/// @name Exchange
/// A number or text is written only if the field shows something else. A text that is not a number of the type is
/// reported to the user and refused.
/// @{
/// Subclasses the control at the first exchange.
AFX_EXPORTED void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LONGLONG& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, ULONGLONG& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
/// The length includes the terminator; longer texts are cut.
AFX_EXPORTED void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen);
/// 0, 1 or, for a three-state button, 2; other values are written as 0.
AFX_EXPORTED void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
/// The id is that of the first button, which has WS_GROUP; -1 means none.
AFX_EXPORTED void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
/// The selected row, -1 for none.
AFX_EXPORTED void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_EXPORTED void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);
/// The text of the selected row, or of a combo box's field. Writing selects the first row that begins with the value
/// or, with Exact, equals it, ignoring case. If there is none a list stays as it is, and a combo box shows the value in
/// its field.
AFX_EXPORTED void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_EXPORTED void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value);
AFX_EXPORTED void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_EXPORTED void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value);
AFX_EXPORTED void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value);
/// @}

/// @name Validation
/// Follows the exchange of the same control. A value out of range is reported to the user and refused.
/// @{
AFX_EXPORTED void AFXAPI DDV_MinMaxByte(CDataExchange* pDX, BYTE value, BYTE minVal, BYTE maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxShort(CDataExchange* pDX, short value, short minVal, short maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxLongLong(CDataExchange* pDX, LONGLONG value, LONGLONG minVal, LONGLONG maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxULongLong(CDataExchange* pDX, ULONGLONG value, ULONGLONG minVal, ULONGLONG maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxFloat(CDataExchange* pDX, const float& value, float minVal, float maxVal);
AFX_EXPORTED void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal);
/// Also limits what the user can type.
AFX_EXPORTED void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
/// @}

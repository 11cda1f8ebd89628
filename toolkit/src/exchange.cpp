#include <afxwin.h>

#include "thread_state.h"
#include "user_seam.h"

#include <cfloat>
#include <cmath>
#include <cwchar>
#include <limits>
#include <string>

namespace
{

/// Marks the window that exchanges values, during the lifetime of this object.
class Exchanging
{
public:
    explicit Exchanging(HWND window) : m_before(std::exchange(threadState().exchanging, window)) {}
    ~Exchanging() { threadState().exchanging = m_before; }
    Exchanging(const Exchanging&) = delete;
    Exchanging& operator=(const Exchanging&) = delete;

private:
    HWND m_before;
};

} // namespace

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange exchange(this, bSaveAndValidate);
    const Exchanging deaf(m_hWnd);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (CUserException* refused) {
        refused->Delete();
        return FALSE;
    }
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    if (control == nullptr)
        AfxThrowNotSupportedException();
    m_idLastControl = nIDC;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const HWND control = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_idLastControl != 0) {
        const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, m_idLastControl);
        ::SetFocus(control);
        if (m_bEditLastControl)
            ::SendMessageW(control, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

namespace
{

template <class Value>
CString written(Value value)
{
    if constexpr (std::is_floating_point_v<Value>) {
        CString text;
        text.Format(L"%.*g", std::numeric_limits<Value>::digits10, static_cast<double>(value));
        return text;
    } else {
        return std::to_wstring(value).c_str();
    }
}

[[noreturn]] void refuse(CDataExchange* exchange, UINT text, const CString& first = CString(),
                         const CString& second = CString())
{
    CString told = toolkit::userText(text);
    told.Replace(L"%1", first);
    told.Replace(L"%2", second);
    AfxMessageBox(told, MB_ICONEXCLAMATION, text);
    exchange->Fail();
}

CString textOf(HWND control)
{
    CString text;
    const int length = ::GetWindowTextLengthW(control);
    text.ReleaseBuffer(::GetWindowTextW(control, text.GetBufferSetLength(length), length + 1));
    return text;
}

/// Setting an equal text would move the caret and mark the field as changed.
void show(HWND control, const CString& text)
{
    if (textOf(control) != text)
        ::SetWindowTextW(control, text);
}

template <class Value>
void exchangeNumber(CDataExchange* exchange, int id, Value& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        show(control, written(value));
        return;
    }
    using Bounds = std::numeric_limits<Value>;
    const CString text = textOf(control);
    wchar_t* end = nullptr;
    bool inside = false;
    Value read = 0;
    errno = 0;
    if constexpr (std::is_floating_point_v<Value>) {
        const double number = std::wcstod(text, &end);
        inside = std::fabs(number) <= static_cast<double>(Bounds::max()); // false for NaN
        read = static_cast<Value>(inside ? number : 0);
    } else if constexpr (std::is_signed_v<Value>) {
        const long long number = std::wcstoll(text, &end, 10);
        inside = errno == 0 && number >= Bounds::min() && number <= Bounds::max();
        read = static_cast<Value>(number);
    } else {
        const unsigned long long number = std::wcstoull(text, &end, 10);
        inside = errno == 0 && number <= Bounds::max() && text.Find(L'-') < 0;
        read = static_cast<Value>(number);
    }
    if (!inside || end == text.GetString() || end[wcsspn(end, L" \t")] != L'\0')
        refuse(exchange, std::is_floating_point_v<Value> ? AFX_IDP_PARSE_REAL
                         : std::is_signed_v<Value>       ? AFX_IDP_PARSE_INT
                         : sizeof(Value) == 1            ? AFX_IDP_PARSE_BYTE
                                                         : AFX_IDP_PARSE_UINT);
    value = read;
}

template <class Value>
void checkBounds(CDataExchange* exchange, Value value, Value low, Value high)
{
    if (exchange->m_bSaveAndValidate && !(value >= low && value <= high))
        refuse(exchange, std::is_floating_point_v<Value> ? AFX_IDP_PARSE_REAL_RANGE : AFX_IDP_PARSE_INT_RANGE,
               written(low), written(high));
}

void exchangeIndex(CDataExchange* exchange, int id, int& index, UINT get, UINT set)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessageW(control, get, 0, 0));
    else
        ::SendMessageW(control, set, static_cast<WPARAM>(index), 0);
}

/// Selects the row that `find` finds for a text. False if there is none.
bool selectRow(HWND control, const CString& text, UINT find, UINT select)
{
    const LRESULT row =
        ::SendMessageW(control, find, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.GetString()));
    if (row >= 0)
        ::SendMessageW(control, select, static_cast<WPARAM>(row), 0);
    return row >= 0;
}

void exchangeListString(CDataExchange* exchange, int id, CString& value, UINT find)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        selectRow(control, value, find, LB_SETCURSEL);
        return;
    }
    const int row = static_cast<int>(::SendMessageW(control, LB_GETCURSEL, 0, 0));
    value.Empty();
    if (row >= 0)
        static_cast<CListBox*>(CWnd::FromHandle(control))->GetText(row, value);
}

void exchangeComboString(CDataExchange* exchange, int id, CString& value, UINT find)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = textOf(control);
    else if (!selectRow(control, value, find, CB_SETCURSEL))
        show(control, value);
}

} // namespace

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd == nullptr && !rControl.SubclassWindow(pDX->PrepareCtrl(nIDC)))
        AfxThrowNotSupportedException();
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LONGLONG& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, ULONGLONG& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value)
{
    exchangeNumber(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value)
{
    exchangeNumber(pDX, nIDC, value);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = textOf(control);
    else
        show(control, value);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen)
{
    CString text(value);
    DDX_Text(pDX, nIDC, text);
    if (pDX->m_bSaveAndValidate && nMaxLen > 0)
        lstrcpynW(value, text, nMaxLen);
}

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
    else
        ::SendMessageW(control, BM_SETCHECK, value < 0 || value > 2 ? 0 : static_cast<WPARAM>(value), 0);
}

void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    int button = 0;
    do {
        if ((::SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
            if (!pDX->m_bSaveAndValidate)
                ::SendMessageW(control, BM_SETCHECK, button == value, 0);
            else if (::SendMessageW(control, BM_GETCHECK, 0, 0) != 0)
                value = button;
            ++button;
        }
        control = ::GetWindow(control, GW_HWNDNEXT);
    } while (control != nullptr && (::GetWindowLongPtrW(control, GWL_STYLE) & WS_GROUP) == 0);
}

void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    exchangeIndex(pDX, nIDC, index, LB_GETCURSEL, LB_SETCURSEL);
}
void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    exchangeIndex(pDX, nIDC, index, CB_GETCURSEL, CB_SETCURSEL);
}

void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value)
{
    exchangeListString(pDX, nIDC, value, LB_FINDSTRING);
}
void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value)
{
    exchangeListString(pDX, nIDC, value, LB_FINDSTRINGEXACT);
}
void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value)
{
    exchangeComboString(pDX, nIDC, value, CB_FINDSTRING);
}
void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value)
{
    exchangeComboString(pDX, nIDC, value, CB_FINDSTRINGEXACT);
}

void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = ::GetScrollPos(control, SB_CTL);
    else
        ::SetScrollPos(control, SB_CTL, value, TRUE);
}

void AFXAPI DDV_MinMaxByte(CDataExchange* pDX, BYTE value, BYTE minVal, BYTE maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxShort(CDataExchange* pDX, short value, short minVal, short maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxLongLong(CDataExchange* pDX, LONGLONG value, LONGLONG minVal, LONGLONG maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxULongLong(CDataExchange* pDX, ULONGLONG value, ULONGLONG minVal, ULONGLONG maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxFloat(CDataExchange* pDX, const float& value, float minVal, float maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}
void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal)
{
    checkBounds(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars)
{
    if (pDX->m_bSaveAndValidate) {
        if (value.GetLength() > nChars)
            refuse(pDX, AFX_IDP_PARSE_STRING_SIZE, written(nChars));
    } else if (pDX->m_bEditLastControl && pDX->m_idLastControl != 0) {
        ::SendDlgItemMessageW(pDX->m_pDlgWnd->m_hWnd, pDX->m_idLastControl, EM_LIMITTEXT, static_cast<WPARAM>(nChars),
                              0);
    }
}

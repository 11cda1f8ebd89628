#include <afxwin.h>

#include <cmath>
#include <cwchar>

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange exchange(this, bSaveAndValidate);
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
    m_last = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    m_lastIsEdit = false;
    if (m_last == nullptr)
        AfxThrowNotSupportedException();
    return m_last;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    PrepareCtrl(nIDC);
    m_lastIsEdit = true;
    return m_last;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_last != nullptr) {
        ::SetFocus(m_last);
        if (m_lastIsEdit)
            ::SendMessageW(m_last, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

namespace
{

[[noreturn]] void refuse(CDataExchange* exchange, const CString& text)
{
    AfxMessageBox(text, MB_ICONEXCLAMATION);
    exchange->Fail();
}

CString textOf(HWND control)
{
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    return text;
}

bool onlyBlanksFrom(const wchar_t* text)
{
    return text[wcsspn(text, L" \t")] == L'\0';
}

/// A whole number between bounds; anything else is refused.
long long wholeNumber(CDataExchange* exchange, HWND control, long long low, long long high)
{
    const CString text = textOf(control);
    wchar_t* end = nullptr;
    errno = 0;
    const long long value = wcstoll(text, &end, 10);
    if (end == text.GetString() || !onlyBlanksFrom(end) || errno != 0 || value < low || value > high)
        refuse(exchange, L"Please enter an integer.");
    return value;
}

CString written(const wchar_t* format, double value)
{
    CString text;
    text.Format(format, value);
    return text;
}

} // namespace

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd == nullptr && !rControl.SubclassWindow(pDX->PrepareCtrl(nIDC)))
        AfxThrowNotSupportedException();
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(wholeNumber(pDX, control, INT_MIN, INT_MAX));
    else
        ::SetWindowTextW(control, std::to_wstring(value).c_str());
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = static_cast<UINT>(wholeNumber(pDX, control, 0, UINT_MAX));
    else
        ::SetWindowTextW(control, std::to_wstring(value).c_str());
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate) {
        ::SetWindowTextW(control, written(L"%.15g", value));
        return;
    }
    const CString text = textOf(control);
    wchar_t* end = nullptr;
    const double read = wcstod(text, &end);
    if (end == text.GetString() || !onlyBlanksFrom(end) || !std::isfinite(read))
        refuse(pDX, L"Please enter a number.");
    value = read;
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = textOf(control);
    else
        ::SetWindowTextW(control, value);
}

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
    else
        ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
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
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessageW(control, LB_GETCURSEL, 0, 0));
    else
        ::SendMessageW(control, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
    else
        ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal)
{
    if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal))
        return;
    CString text;
    text.Format(L"Please enter an integer between %d and %d.", minVal, maxVal);
    refuse(pDX, text);
}

void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal)
{
    if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal))
        return;
    refuse(pDX,
           L"Please enter a number between " + written(L"%.15g", minVal) + L" and " + written(L"%.15g", maxVal) + L".");
}

void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars)
{
    if (!pDX->m_bSaveAndValidate || value.GetLength() <= nChars)
        return;
    CString text;
    text.Format(L"Please enter no more than %d characters.", nChars);
    refuse(pDX, text);
}

#include <afxwin.h>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)
IMPLEMENT_DYNAMIC(CResourceException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT*) const
{
    if (nMaxError > 0)
        lpszError[0] = L'\0';
    return FALSE;
}

int CException::ReportError(UINT nType, UINT nMessageID)
{
    wchar_t text[512];
    CString message;
    if (GetErrorMessage(text, _countof(text)))
        message = text;
    else if (nMessageID == 0 || !message.LoadString(nMessageID))
        message = GetRuntimeClass()->m_lpszClassName;
    return AfxMessageBox(message, nType);
}

#include <afxdlgs.h>
#include <toolkit/user.h>

IMPLEMENT_DYNAMIC(CCommonDialog, CDialog)
IMPLEMENT_DYNAMIC(CFileDialog, CCommonDialog)

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags,
                         LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD, BOOL)
    : CCommonDialog(pParentWnd), m_bOpenFileDialog(bOpenFileDialog), m_filter(lpszFilter)
{
    m_ofn.lStructSize = sizeof m_ofn;
    m_ofn.lpstrFile = m_file;
    m_ofn.nMaxFile = _countof(m_file);
    m_ofn.lpstrDefExt = lpszDefExt;
    m_ofn.Flags = dwFlags | OFN_EXPLORER | OFN_ENABLESIZING;
    m_ofn.hInstance = AfxGetResourceHandle();
    if (lpszFileName != nullptr)
        lstrcpynW(m_file, lpszFileName, _countof(m_file));
    if (lpszFilter != nullptr) {
        m_filter.Replace(L'|', L'\0'); // the system separates by terminators instead of bars
        m_ofn.lpstrFilter = m_filter;
    }
}

INT_PTR CFileDialog::DoModal()
{
    const CWnd* owner = GetSafeOwner(m_pParentWnd);
    if (m_ofn.hwndOwner == nullptr && owner != nullptr)
        m_ofn.hwndOwner = owner->m_hWnd;
    return toolkit::chooseFile(m_ofn, !m_bOpenFileDialog) ? IDOK : IDCANCEL;
}

CString CFileDialog::GetFileName() const
{
    const CString path = GetPathName();
    return path.Mid(path.ReverseFind(L'\\') + 1);
}

CString CFileDialog::GetFileExt() const
{
    const CString name = GetFileName();
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? CString() : name.Mid(dot + 1);
}

CString CFileDialog::GetFileTitle() const
{
    const CString name = GetFileName();
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? name : name.Left(dot);
}

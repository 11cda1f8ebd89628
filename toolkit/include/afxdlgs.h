/// @file
/// The system's dialog for choosing files.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <commdlg.h>

class AFX_EXPORTED CCommonDialog : public CDialog
{
    DECLARE_DYNAMIC(CCommonDialog)

public:
    explicit CCommonDialog(CWnd* pParentWnd) { m_pParentWnd = pParentWnd; }
};

class AFX_EXPORTED CFileDialog : public CCommonDialog
{
    DECLARE_DYNAMIC(CFileDialog)

public:
    /// The filter is a list of pairs, "Texts (*.txt)|*.txt||". The system determines the look of the dialog: the last
    /// two arguments have no effect.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr, DWORD dwSize = 0, BOOL bVistaStyle = TRUE);

    OPENFILENAME m_ofn = {};
    const OPENFILENAME& GetOFN() const { return m_ofn; }
    OPENFILENAME& GetOFN() { return m_ofn; }

    /// IDOK if a file was chosen.
    INT_PTR DoModal() override;

    /// @name What was chosen
    /// @{
    CString GetPathName() const { return m_ofn.lpstrFile; }
    CString GetFileName() const;  ///< with extension, without folder
    CString GetFileExt() const;   ///< without the dot
    CString GetFileTitle() const; ///< without folder and extension
    /// @}

protected:
    BOOL m_bOpenFileDialog;

private:
    CString m_filter;
    wchar_t m_file[MAX_PATH] = L"";
};

#include <vek/dialogframe/folder.h>
#include <vek/dialogframe/window/file_dialog.h>

#include <toolkit/user.h>

#include <algorithm>

IMPLEMENT_DYNAMIC(CVekFileDialog, CFileDialog)

CVekFileDialog::CVekFileDialog(BOOL open, LPCTSTR extension, LPCTSTR fileName, DWORD flags, LPCTSTR filter,
                               CWnd* parent)
    : CFileDialog(open, extension, fileName, flags, filter, parent, 0, FALSE)
{
    if (parent)
        m_ofn.hwndOwner = parent->m_hWnd;
}

INT_PTR CVekFileDialog::DoModal()
{
    m_ofn.Flags &= ~static_cast<DWORD>(OFN_ENABLEHOOK);
    return toolkit::chooseFile(m_ofn, false) ? IDOK : IDCANCEL;
}

namespace
{

/// Selects the first folder, and shows the path of the present one.
int CALLBACK onFolder(HWND dialog, UINT message, LPARAM item, LPARAM start)
{
    wchar_t path[MAX_PATH] = L"";
    if (message == BFFM_INITIALIZED && start)
        ::SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, start);
    else if (message == BFFM_SELCHANGED && ::SHGetPathFromIDListW(reinterpret_cast<PCIDLIST_ABSOLUTE>(item), path))
        ::SendMessageW(dialog, BFFM_SETSTATUSTEXTW, 0, reinterpret_cast<LPARAM>(path));
    return 0;
}

} // namespace

bool VEK::dlgFolder(HWND owner, CVekString& path, const wchar_t* title)
{
    const CVekString start = folderStart(path);
    wchar_t* const buffer = path.GetBuffer(static_cast<unsigned>(std::max(path.len(), MAX_PATH)));
    if (!buffer)
        return false;
    BROWSEINFOW request = {};
    request.hwndOwner = owner ? owner : ::GetActiveWindow();
    request.pszDisplayName = buffer;
    request.lpszTitle = title;
    request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_EDITBOX | BIF_NEWDIALOGSTYLE;
    request.lpfn = onFolder;
    request.lParam = reinterpret_cast<LPARAM>(static_cast<const wchar_t*>(start));
    const bool hasOle = SUCCEEDED(::OleInitialize(nullptr)); // the new style of the dialog needs both
    const bool hasCom = SUCCEEDED(::CoInitialize(nullptr));
    const LPITEMIDLIST chosen = toolkit::chooseFolder(request);
    if (chosen) {
        *buffer = L'\0';
        ::SHGetPathFromIDListW(chosen, buffer);
        ::CoTaskMemFree(chosen);
        if (!path.isNull() && path[path.len() - 1] != L'\\')
            path += L'\\';
    }
    if (hasOle)
        ::OleUninitialize();
    if (hasCom)
        ::CoUninitialize();
    return chosen != nullptr;
}

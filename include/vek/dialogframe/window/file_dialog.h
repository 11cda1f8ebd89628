/// @file
/// The system's dialogs for files and folders, as this library opens them. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/values/string.h>

#include <afxdlgs.h>

/// Lets the user choose a file to open, whatever the open flag says. It runs without hooks, in the system's own form,
/// so that a host's hooks cannot change it.
class VEK_API CVekFileDialog : public CFileDialog
{
    DECLARE_DYNAMIC(CVekFileDialog)

public:
    explicit CVekFileDialog(BOOL open, LPCTSTR extension = nullptr, LPCTSTR fileName = nullptr,
                            DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR filter = nullptr,
                            CWnd* parent = nullptr);

    /// @return IDOK if a file was chosen, else IDCANCEL
    INT_PTR DoModal() override;

    /// @param title must live until `DoModal` returns
    void SetTitle(LPCTSTR title) { m_ofn.lpstrTitle = title; }
};

namespace VEK
{

/// Lets the user choose a folder.
/// @param owner null for the active window
/// @param path where to begin, see `folderStart`; receives the folder, with a backslash at its end. After a cancel it
/// is what the dialog left there
/// @return whether one was chosen
VEK_API bool dlgFolder(HWND owner, CVekString& path, const wchar_t* title);

} // namespace VEK

#endif

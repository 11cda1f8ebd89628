/// @file
/// How windows reach their user: the one way to everything that waits for an answer, and where texts come from. The
/// classes of this toolkit go this way, and so does code that asks the system itself. Tests, and programs without
/// anybody in front of the screen, put an object in the user's place. With Visual C++ there is nothing to put there:
/// the compiler's own classes ask the system.
#pragma once

#include <windows.h>

#include <commdlg.h>
#include <shlobj.h>

#if !defined(_MSC_VER)

#if defined(VEK_TOOLKIT_BUILDING)
#define TOOLKIT_USER_API __declspec(dllexport)
#else
#define TOOLKIT_USER_API __declspec(dllimport)
#endif

class CDialog;

namespace toolkit
{

/// Stands in the place of the user.
class User
{
public:
    virtual ~User() = default;

    /// The answer to a message box: IDOK and the like.
    virtual int messageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) = 0;
    /// Writes the choice into `lpstrFile` of the request. False for none.
    virtual bool chooseFile(OPENFILENAMEW& request, bool save) = 0;
    /// The choice, which the caller ends by CoTaskMemFree; null for none.
    virtual LPITEMIDLIST chooseFolder(BROWSEINFOW& request) = 0;
    /// Called before the window of a modal dialog is made. With false it is not made, and DoModal gives -1.
    virtual bool dialogOpens(CDialog& dialog) = 0;
    /// Called once, when the dialog is shown and has nothing left to do but wait. It may run other dialogs and may end
    /// this one.
    virtual void dialogWaits(CDialog& dialog) = 0;
    /// Called behind a dialog that was allowed to open.
    virtual void dialogEnded(CDialog& dialog, INT_PTR result) = 0;
};

/// Puts an object in the user's place, for all threads.
/// @param user owned by the caller, null for the person at the screen
/// @return what stood there before
TOOLKIT_USER_API User* userSet(User* user);

/// @name Asking
/// As MessageBoxW, GetOpenFileNameW or GetSaveFileNameW, and SHBrowseForFolderW.
/// @{
TOOLKIT_USER_API int messageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
TOOLKIT_USER_API bool chooseFile(OPENFILENAMEW& request, bool save);
TOOLKIT_USER_API LPITEMIDLIST chooseFolder(BROWSEINFOW& request);
/// @}

/// The text of a number for the user in front of the screen, valid until the next call; null for none. `builtIn` is
/// what would be shown then. %1 and %2 stand for what is filled in.
using TextSource = LPCWSTR (*)(UINT id, LPCWSTR builtIn);

/// Says where the texts of the toolkit itself come from, see AFX_IDP_PARSE_INT. Without a source, or a text there, they
/// come from the string tables of the modules, and last they are German.
/// @return the source before
TOOLKIT_USER_API TextSource textSourceSet(TextSource source);

} // namespace toolkit

#else

namespace toolkit
{

inline int messageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    return ::MessageBoxW(owner, text, caption, type);
}
inline bool chooseFile(OPENFILENAMEW& request, bool save)
{
    return (save ? ::GetSaveFileNameW(&request) : ::GetOpenFileNameW(&request)) != FALSE;
}
inline LPITEMIDLIST chooseFolder(BROWSEINFOW& request)
{
    return ::SHBrowseForFolderW(&request);
}

} // namespace toolkit

#endif

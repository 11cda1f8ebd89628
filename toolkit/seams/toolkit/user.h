/// @file
/// How windows reach the user: one interface for everything that waits for an answer, and the source of texts. The
/// classes of this toolkit use it, and so does code that would call the system directly. Tests, and programs without
/// anybody in front of the screen, install an object that answers in place of the user. With Visual C++ that is not
/// possible: the compiler's own classes call the system.
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

/// Answers in place of the user.
class User
{
public:
    virtual ~User() = default;

    /// The answer to a message box: IDOK and the like.
    virtual int messageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) = 0;
    /// Writes the choice into `lpstrFile` of the request. False if nothing was chosen.
    virtual bool chooseFile(OPENFILENAMEW& request, bool save) = 0;
    /// The choice, which the caller frees with CoTaskMemFree; null for none.
    virtual LPITEMIDLIST chooseFolder(BROWSEINFOW& request) = 0;
    /// Called before the window of a modal dialog is created. If false, it is not created, and DoModal returns -1.
    virtual bool dialogOpens(CDialog& dialog) = 0;
    /// Called once, when the dialog is shown and is only waiting. It may run other dialogs and may end this one.
    virtual void dialogWaits(CDialog& dialog) = 0;
    /// Called after a dialog that was allowed to open.
    virtual void dialogEnded(CDialog& dialog, INT_PTR result) = 0;
};

/// Installs an object that answers in place of the user, for all threads.
/// @param user owned by the caller, null for the person at the screen
/// @return the previous one
TOOLKIT_USER_API User* userSet(User* user);

/// @name Asking
/// As MessageBoxW, GetOpenFileNameW or GetSaveFileNameW, and SHBrowseForFolderW.
/// @{
TOOLKIT_USER_API int messageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
TOOLKIT_USER_API bool chooseFile(OPENFILENAMEW& request, bool save);
TOOLKIT_USER_API LPITEMIDLIST chooseFolder(BROWSEINFOW& request);
/// @}

/// Returns the text of a number for the user, valid until the next call; null for none, and then `builtIn` is shown. %1
/// and %2 are placeholders.
using TextSource = LPCWSTR (*)(UINT id, LPCWSTR builtIn);

/// Sets the source of the toolkit's own texts, see AFX_IDP_PARSE_INT. Without a source, or a text from it, they come
/// from the string tables of the modules, or else they are German.
/// @return the previous source
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

using TextSource = LPCWSTR (*)(UINT id, LPCWSTR builtIn);
inline TextSource textSourceSet(TextSource) // its own texts come from its string tables
{
    return nullptr;
}

} // namespace toolkit

#endif

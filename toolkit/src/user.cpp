#include <toolkit/user.h>

#include "thread_state.h"
#include "user_seam.h"

#include <atomic>

namespace
{

std::atomic<toolkit::User*> g_user = nullptr;
std::atomic<toolkit::TextSource> g_texts = nullptr;

LPCWSTR builtInText(UINT id)
{
    switch (id) {
    case AFX_IDP_PARSE_INT: return L"Bitte geben Sie eine ganze Zahl ein.";
    case AFX_IDP_PARSE_REAL: return L"Bitte geben Sie eine Zahl ein.";
    case AFX_IDP_PARSE_INT_RANGE: return L"Bitte geben Sie eine ganze Zahl zwischen %1 und %2 ein.";
    case AFX_IDP_PARSE_REAL_RANGE: return L"Bitte geben Sie eine Zahl zwischen %1 und %2 ein.";
    case AFX_IDP_PARSE_STRING_SIZE: return L"Bitte geben Sie höchstens %1 Zeichen ein.";
    case AFX_IDP_PARSE_BYTE: return L"Bitte geben Sie eine ganze Zahl zwischen 0 und 255 ein.";
    case AFX_IDP_PARSE_UINT: return L"Bitte geben Sie eine positive ganze Zahl ein.";
    default: return L"";
    }
}

} // namespace

namespace toolkit
{

User* userSet(User* user)
{
    return g_user.exchange(user);
}

User* userInPlace()
{
    return g_user;
}

int messageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    const ModalLevel level;
    User* user = g_user;
    return user == nullptr ? ::MessageBoxW(owner, text, caption, type) : user->messageBox(owner, text, caption, type);
}

bool chooseFile(OPENFILENAMEW& request, bool save)
{
    const ModalLevel level;
    if (User* user = g_user; user != nullptr)
        return user->chooseFile(request, save);
    const HWND focus = ::GetFocus();
    const BOOL chosen = save ? ::GetSaveFileNameW(&request) : ::GetOpenFileNameW(&request);
    if (::IsWindow(focus)) // a cancelled dialog does not always give it back
        ::SetFocus(focus);
    return chosen != FALSE;
}

LPITEMIDLIST chooseFolder(BROWSEINFOW& request)
{
    const ModalLevel level;
    User* user = g_user;
    return user == nullptr ? ::SHBrowseForFolderW(&request) : user->chooseFolder(request);
}

TextSource textSourceSet(TextSource source)
{
    return g_texts.exchange(source);
}

CString userText(UINT id)
{
    const TextSource source = g_texts;
    CString text = source == nullptr ? nullptr : source(id, builtInText(id));
    return !text.IsEmpty() || text.LoadString(id) ? text : CString(builtInText(id));
}

} // namespace toolkit

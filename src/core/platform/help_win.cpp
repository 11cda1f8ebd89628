// Compiled help. The records are the documented ones of HtmlHelpW. It is in a DLL that few programs need, so that is
// loaded on first use.
#include "core/platform/outside.h"

#include <windows.h>

namespace
{

constexpr UINT kTopic = 0x0000, kKeyword = 0x000D, kTextPopup = 0x000E;

struct Keyword {
    int size;
    BOOL reserved;
    LPCWSTR keywords, url, messageText, messageTitle, window;
    BOOL indexOnFail;
};
struct Popup {
    int size;
    HINSTANCE module;
    UINT id;
    LPCWSTR text;
    POINT place;
    COLORREF foreground, background;
    RECT margins;
    LPCWSTR font;
};
#if defined(_WIN64)
static_assert(sizeof(Keyword) == 56 && sizeof(Popup) == 72);
#endif

HWND htmlHelp(LPCWSTR file, UINT command, const void* record)
{
    using Function = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
    static const auto function =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"hhctrl.ocx"), "HtmlHelpW")));
    return function == nullptr ? nullptr : function(nullptr, file, command, reinterpret_cast<DWORD_PTR>(record));
}

} // namespace

namespace VEK::platform
{

bool helpBySystem(const OutsideCall& call)
{
    switch (call.what) {
    case OutsideCall::What::helpTopic: return htmlHelp(call.target.c_str(), kTopic, nullptr) != nullptr;
    case OutsideCall::What::helpKeyword: {
        Keyword record = {};
        record.size = sizeof record;
        record.keywords = call.text.c_str();
        return htmlHelp(call.target.c_str(), kKeyword, &record) != nullptr;
    }
    case OutsideCall::What::helpPopup: {
        constexpr COLORREF systems = 0xFFFFFFFF;
        Popup record = {};
        record.size = sizeof record;
        record.text = call.text.c_str();
        record.place = {call.x, call.y};
        record.foreground = record.background = systems;
        record.margins = {-1, -1, -1, -1};
        return htmlHelp(nullptr, kTextPopup, &record) != nullptr;
    }
    default: return false;
    }
}

} // namespace VEK::platform

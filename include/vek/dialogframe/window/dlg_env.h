/// @file
/// What a dialog function is told of its surroundings, and the application's icon. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/values/string.h>
#include <vek/values/units.h>

#include <afxwin.h>

namespace VEK
{

/// The surroundings of a dialog. A new record knows the unit of the host, the language of the process, and as parent
/// the dialog that is open, or else the active window.
struct VEK_API DlgEnv_st {
    DlgEnv_st();
    DlgEnv_st(const DlgEnv_st&) = default;
    DlgEnv_st& operator=(const DlgEnv_st&) = default;

    /// The parent window, null for none. A temporary object, which must not be kept.
    virtual CWnd* parentWnd() const;

    Vek::lUnit unit;
    CVekString country;
    CVekString helpFile;
    CVekString helpTopic;
    HWND parent;
};

/// The icon of the application, see `appIconId`. It belongs to the library.
/// @return null if it cannot be loaded
VEK_API HICON appIcon();

} // namespace VEK

#endif

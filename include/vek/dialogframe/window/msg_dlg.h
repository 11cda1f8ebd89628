/// @file
/// The text application: another program, which has the translations and lets the user select a key. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/export.h>

#include <afxdisp.h>

/// A client of the text application. No call throws: one that fails, or that is not answered in time (see
/// `VEK::rscCallDeadlineSet`), gives an empty text, false or 0. An application that has once not answered in time, or
/// that has ended, is not asked again by this client: its `m_lpDispatch` is null from then on.
class VEK_API IVekMsgDlg : public COleDispatchDriver
{
public:
    IVekMsgDlg() = default;
    /// Takes the reference over.
    IVekMsgDlg(IDispatch* application) : COleDispatchDriver(application) {}
    IVekMsgDlg(const IVekMsgDlg& other) : COleDispatchDriver(other) {}
    ~IVekMsgDlg() = default;
    IVekMsgDlg& operator=(const IVekMsgDlg& other);

    /// The key that is selected in the application's window; empty if none is.
    CString GetSelectedKey();

    /// Opens a file of texts.
    BOOL OpenFile(LPCTSTR file);

    /// Selects a key.
    /// @return whether there is such a key
    BOOL SearchKey(LPCTSTR key);

    /// The text of a key. The two differ in the application: what `wGetMsg` gives holds every character.
    CString GetMsg(LPCTSTR key, LPCTSTR language);

    /// The text of a key, empty without a translation. The language "0" gives the text's attributes: "M" if it has
    /// several lines.
    CString wGetMsg(LPCTSTR key, LPCTSTR language);

    /// Ends the application.
    void Close();

    /// Whether the application's window is shown.
    int GetVisible();
    void SetVisible(int visible);

    /// The language in which the application's window shows the texts.
    CString GetCountry();
    void SetCountry(LPCTSTR language);
};

namespace VEK
{

/// Connects to the text application, the automation server "Vek_Msg.App". If it is installed but not running, it is
/// started, which blocks the thread under a wait cursor for up to 20 seconds.
/// @return null if there is none. The caller does not own the pointer: one that keeps it adds a reference at once
VEK_API IDispatch* getRscAppDispatch();

/// Sets how long calls of the text application may take, initially 20000 milliseconds.
/// @return the previous time
VEK_API unsigned long rscCallDeadlineSet(unsigned long milliseconds);

} // namespace VEK

#endif

/// @file
/// Message map entries for commands and for notifications of controls. Included by <afxwin.h>.
#pragma once

/// @name Commands, from menus, accelerators and buttons
/// @{
#define ON_COMMAND(nID, memberFxn) ON_CONTROL(CN_COMMAND, nID, memberFxn)
#define ON_COMMAND_RANGE(nID, nLastID, memberFxn) ON_CONTROL_RANGE(CN_COMMAND, nID, nLastID, memberFxn)
/// The handler gets the id and returns false to pass the command on.
#define ON_COMMAND_EX(nID, memberFxn)                                                                                  \
    AFX_ENTRY(WM_COMMAND, CN_COMMAND, nID, nID, nullptr, memberFxn, BOOL, (UINT), return (self->*handler)(m.id))
/// @}

/// @name Notifications of controls to their parent
/// @{
#define ON_CONTROL(wNotifyCode, nID, memberFxn)                                                                        \
    AFX_ENTRY(WM_COMMAND, wNotifyCode, nID, nID, nullptr, memberFxn, void, (), (self->*handler)(); return TRUE)
#define ON_CONTROL_RANGE(wNotifyCode, nID, nLastID, memberFxn)                                                         \
    AFX_ENTRY(WM_COMMAND, wNotifyCode, nID, nLastID, nullptr, memberFxn, void, (UINT), (self->*handler)(m.id);         \
              return TRUE)

#define ON_BN_CLICKED(nID, memberFxn) ON_CONTROL(BN_CLICKED, nID, memberFxn)
#define ON_BN_DOUBLECLICKED(nID, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, nID, memberFxn)
#define ON_BN_SETFOCUS(nID, memberFxn) ON_CONTROL(BN_SETFOCUS, nID, memberFxn)
#define ON_BN_KILLFOCUS(nID, memberFxn) ON_CONTROL(BN_KILLFOCUS, nID, memberFxn)
#define ON_EN_SETFOCUS(nID, memberFxn) ON_CONTROL(EN_SETFOCUS, nID, memberFxn)
#define ON_EN_KILLFOCUS(nID, memberFxn) ON_CONTROL(EN_KILLFOCUS, nID, memberFxn)
#define ON_EN_CHANGE(nID, memberFxn) ON_CONTROL(EN_CHANGE, nID, memberFxn)
#define ON_EN_UPDATE(nID, memberFxn) ON_CONTROL(EN_UPDATE, nID, memberFxn)
#define ON_EN_MAXTEXT(nID, memberFxn) ON_CONTROL(EN_MAXTEXT, nID, memberFxn)
#define ON_LBN_SELCHANGE(nID, memberFxn) ON_CONTROL(LBN_SELCHANGE, nID, memberFxn)
#define ON_LBN_DBLCLK(nID, memberFxn) ON_CONTROL(LBN_DBLCLK, nID, memberFxn)
#define ON_LBN_SETFOCUS(nID, memberFxn) ON_CONTROL(LBN_SETFOCUS, nID, memberFxn)
#define ON_LBN_KILLFOCUS(nID, memberFxn) ON_CONTROL(LBN_KILLFOCUS, nID, memberFxn)
#define ON_CBN_SELCHANGE(nID, memberFxn) ON_CONTROL(CBN_SELCHANGE, nID, memberFxn)
#define ON_CBN_SELENDOK(nID, memberFxn) ON_CONTROL(CBN_SELENDOK, nID, memberFxn)
#define ON_CBN_SELENDCANCEL(nID, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, nID, memberFxn)
#define ON_CBN_DBLCLK(nID, memberFxn) ON_CONTROL(CBN_DBLCLK, nID, memberFxn)
#define ON_CBN_SETFOCUS(nID, memberFxn) ON_CONTROL(CBN_SETFOCUS, nID, memberFxn)
#define ON_CBN_KILLFOCUS(nID, memberFxn) ON_CONTROL(CBN_KILLFOCUS, nID, memberFxn)
#define ON_CBN_EDITCHANGE(nID, memberFxn) ON_CONTROL(CBN_EDITCHANGE, nID, memberFxn)
#define ON_CBN_EDITUPDATE(nID, memberFxn) ON_CONTROL(CBN_EDITUPDATE, nID, memberFxn)
#define ON_CBN_DROPDOWN(nID, memberFxn) ON_CONTROL(CBN_DROPDOWN, nID, memberFxn)
#define ON_CBN_CLOSEUP(nID, memberFxn) ON_CONTROL(CBN_CLOSEUP, nID, memberFxn)
#define ON_STN_CLICKED(nID, memberFxn) ON_CONTROL(STN_CLICKED, nID, memberFxn)
#define ON_STN_DBLCLK(nID, memberFxn) ON_CONTROL(STN_DBLCLK, nID, memberFxn)

/// Forms with EX return false to pass the notification on.
#define AFX_NOTIFIED reinterpret_cast<NMHDR*>(m.lParam), &m.result
#define ON_NOTIFY(wNotifyCode, nID, memberFxn)                                                                         \
    AFX_ENTRY(WM_NOTIFY, wNotifyCode, nID, nID, nullptr, memberFxn, void, (NMHDR*, LRESULT*),                          \
              (self->*handler)(AFX_NOTIFIED);                                                                          \
              return TRUE)
#define ON_NOTIFY_RANGE(wNotifyCode, nID, nLastID, memberFxn)                                                          \
    AFX_ENTRY(WM_NOTIFY, wNotifyCode, nID, nLastID, nullptr, memberFxn, void, (UINT, NMHDR*, LRESULT*),                \
              (self->*handler)(m.id, AFX_NOTIFIED);                                                                    \
              return TRUE)
#define ON_NOTIFY_EX(wNotifyCode, nID, memberFxn) ON_NOTIFY_EX_RANGE(wNotifyCode, nID, nID, memberFxn)
#define ON_NOTIFY_EX_RANGE(wNotifyCode, nID, nLastID, memberFxn)                                                       \
    AFX_ENTRY(WM_NOTIFY, wNotifyCode, nID, nLastID, nullptr, memberFxn, BOOL, (UINT, NMHDR*, LRESULT*),                \
              return (self->*handler)(m.id, AFX_NOTIFIED))
/// @}

/// @name Notifications that a control handles itself
/// The parent gets them only if the control has no such entry or, in the forms with EX, returns false.
/// @{
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                                     \
    AFX_ENTRY(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, nullptr, memberFxn, void, (), (self->*handler)();       \
              return TRUE)
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                                                  \
    AFX_ENTRY(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, nullptr, memberFxn, BOOL, (), return (self->*handler)())
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                                      \
    AFX_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, nullptr, memberFxn, void, (NMHDR*, LRESULT*),            \
              (self->*handler)(AFX_NOTIFIED);                                                                          \
              return TRUE)
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                                                   \
    AFX_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, nullptr, memberFxn, BOOL, (NMHDR*, LRESULT*),            \
              return (self->*handler)(AFX_NOTIFIED))
/// @}

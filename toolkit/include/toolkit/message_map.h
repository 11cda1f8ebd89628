/// @file
/// Message maps: which member of a class handles which message. Each class has one table, linked to that of its base
/// class; an entry unpacks the message's parameters and calls its handler with them.
#pragma once

#include <toolkit/dc.h>

class CCmdTarget;

/// A message or command on its way to a handler.
struct AFX_CALL {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT result; ///< what the sender gets
    UINT id;        ///< of the control or command
};

/// False if the handler passes the message on.
using AFX_HANDLER = BOOL (*)(CCmdTarget* target, AFX_CALL& m);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;              ///< notification code
    UINT nID, nLastID;       ///< range of control or command ids
    const UINT* pRegistered; ///< the number of a registered message; else null
    AFX_HANDLER pfn;         ///< null ends the table
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); ///< null for the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* GetThisMessageMap();                                                                      \
    virtual const AFX_MSGMAP* GetMessageMap() const;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const                                                                  \
    {                                                                                                                  \
        return GetThisMessageMap();                                                                                    \
    }                                                                                                                  \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                                    \
    {                                                                                                                  \
        using ThisClass = theClass;                                                                                    \
        using TheBaseClass = baseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                              \
    {                                                                                                                  \
        0, 0, 0, 0, nullptr, nullptr                                                                                   \
    }                                                                                                                  \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries};                                         \
    static_cast<void>(sizeof(ThisClass));                                                                              \
    return &map;                                                                                                       \
    }

/// Added to a message that the parent reflects to the control.
#define WM_REFLECT_BASE (WM_USER + 0x1C00)
/// Represents all messages that query a control's colours.
#define WM_CTLCOLOR 0x0019

#define CN_COMMAND 0

/// An entry whose handler must have exactly this return type and these parameters.
#define AFX_ENTRY(message, code, first, last, registered, function, result_type, arguments, ...)                       \
    {message,                                                                                                          \
     static_cast<UINT>(code),                                                                                          \
     static_cast<UINT>(first),                                                                                         \
     static_cast<UINT>(last),                                                                                          \
     registered,                                                                                                       \
     [](CCmdTarget* target, [[maybe_unused]] AFX_CALL& m) -> BOOL {                                                    \
         result_type(ThisClass::*handler) arguments = function;                                                        \
         const auto self = static_cast<ThisClass*>(target);                                                            \
         __VA_ARGS__;                                                                                                  \
     }},

#define AFX_WM(message, function, result_type, arguments, ...)                                                         \
    AFX_ENTRY(message, 0, 0, 0, nullptr, &ThisClass::function, result_type, arguments, __VA_ARGS__; return TRUE)

#define ON_MESSAGE(message, memberFxn)                                                                                 \
    AFX_ENTRY(message, 0, 0, 0, nullptr, memberFxn, LRESULT, (WPARAM, LPARAM),                                         \
              m.result = (self->*handler)(m.wParam, m.lParam);                                                         \
              return TRUE)
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                                             \
    AFX_ENTRY(0xC000, 0, 0, 0, &nMessageVariable, memberFxn, LRESULT, (WPARAM, LPARAM),                                \
              m.result = (self->*handler)(m.wParam, m.lParam);                                                         \
              return TRUE)

#include <toolkit/command_macros.h>
#include <toolkit/message_macros.h>

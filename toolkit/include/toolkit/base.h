/// @file
/// Basics of every toolkit header: the system's headers, the export of names from the toolkit's DLL, and the assertion
/// macros.
#pragma once

#if defined(_MSC_VER)
#error "Visual C++ brings these classes itself; the toolkit is for compilers that do not."
#endif
#if !defined(UNICODE) || !defined(_UNICODE)
#error "The toolkit knows wide texts only: define UNICODE and _UNICODE."
#endif

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <tchar.h>

#undef GetNextWindow // a system macro with the name of a member

#include <cassert>
#include <cstddef>

/// Marks what the toolkit's DLL exports. Each module has its own copy of inline members.
#if defined(VEK_TOOLKIT_BUILDING)
#define AFX_EXPORTED __declspec(dllexport)
#else
#define AFX_EXPORTED __declspec(dllimport)
#endif

#ifndef AFXAPI
#define AFXAPI __stdcall
#endif
#define AFX_CDECL __cdecl
#define afx_msg

#ifndef _countof
#define _countof(array) (sizeof(array) / sizeof(*(array)))
#endif

/// Debug builds (without NDEBUG) stop if a condition does not hold; VERIFY evaluates it in every build.
#if defined(NDEBUG)
#define ASSERT(condition) static_cast<void>(0)
#define VERIFY(condition) static_cast<void>(condition)
#define TRACE(...) static_cast<void>(0)
#else
#define ASSERT(condition) assert(condition)
#define VERIFY(condition) assert(condition)
#define TRACE(...) AfxTrace(__VA_ARGS__)
#endif
#define ASSERT_VALID(object) ASSERT((object) != nullptr)

/// Writes a text, formatted as by `wsprintf`, to the debugger.
AFX_EXPORTED void AFX_CDECL AfxTrace(LPCTSTR lpszFormat, ...);

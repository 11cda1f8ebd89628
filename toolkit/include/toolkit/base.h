/// @file
/// What every header of the toolkit stands on: the system's headers, how names leave the toolkit's DLL, and the
/// checking macros.
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

#undef GetNextWindow // a macro of the system with the name of a member

#include <cassert>
#include <cstddef>

/// Marks what the toolkit's DLL gives to programs. Inline members live in each module by themselves.
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

/// Debug builds (without NDEBUG) stop where a condition does not hold; VERIFY evaluates it in every build.
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

/// Writes a text, filled in as `wsprintf` does, to the debugger.
AFX_EXPORTED void AFX_CDECL AfxTrace(LPCTSTR lpszFormat, ...);

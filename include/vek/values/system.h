/// @file
/// What the suite asks of the operating system: programs, per-user settings, its own files.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// Starts a program, or opens a document or web address with the program of its kind.
/// @param timeout milliseconds to wait for its end, 0 for not at all
/// @param show whether its window is shown
/// @return whether it was started and, with a timeout, ended in time
VEK_API bool execute(const wchar_t* command, unsigned long timeout, bool show);

/// Reads and writes a per-user setting: a value of a key, whose levels are parted by backslashes. On Windows it lives
/// in the registry under HKEY_CURRENT_USER, elsewhere in a file of the user's configuration folder.
/// @return false when the key, the value or a value of that type is absent (the target stays) or cannot be written
VEK_API bool regRead(const wchar_t* key, const wchar_t* name, unsigned long& value);
VEK_API bool regRead(const wchar_t* key, const wchar_t* name, CVekString& value);
VEK_API bool regWrite(const wchar_t* key, const wchar_t* name, unsigned long value);
VEK_API bool regWrite(const wchar_t* key, const wchar_t* name, const wchar_t* value);

/// The application's settings key, with `text` as its next level when that is neither null nor empty.
VEK_API bool regAppKey(CVekString& key, const wchar_t* text);

/// The path of a file of the suite in the application's folder, made of a family, a module and an ending:
/// ("Vek", "Mfc", "Dll") names this library's own module, "Vek_2018_20_64_Mfc.dll".
/// @return whether the file is there
VEK_API bool appFileName(CVekString& result, const wchar_t* family, const wchar_t* module, const wchar_t* ending);

} // namespace VEK

#ifdef _WIN32
struct IDispatch;
namespace VEK
{

/// The running automation server of a ProgID. The caller owns the reference that comes with it.
VEK_API bool dispatchFromProgID(const wchar_t* progId, IDispatch** server);

/// The path of the program file of a ProgID's automation server.
VEK_API bool serverFromProgID(const wchar_t* progId, CVekString& path);

} // namespace VEK
#endif

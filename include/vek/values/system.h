/// @file
/// What the suite asks of the operating system: programs, per-user settings, its own files.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// Starts a program, or opens a document, folder or web address with the program of its kind. No shell reads the text.
/// @param command a web address; the path of a file; or a program and its arguments, parted by blanks. Double quotes
/// hold together what has blanks in it; without them the longest beginning that names an existing file is the program
/// @param timeout milliseconds to wait for its end, 0 for not at all; a program that the system does not let us wait
/// for, as one that was running already, counts as ended
/// @param show whether its window is shown; only Windows knows this wish
/// @return whether it was started and, with a timeout, ended in time
VEK_API bool execute(const wchar_t* command, unsigned long timeout, bool show);

/// Reads and writes a per-user setting: a value of a key, whose levels are parted by backslashes. Case does not matter
/// in key and name; a null or empty name is the key's own value. On Windows the settings live in the registry under
/// HKEY_CURRENT_USER, as REG_DWORD and REG_SZ; what is written below a volatile key is volatile. Elsewhere
/// they live in the text file "vek/settings" of the user's configuration folder, $XDG_CONFIG_HOME or else ~/.config.
/// @return false when the key, the value or a value of that type is absent (the target stays) or cannot be written
VEK_API bool regRead(const wchar_t* key, const wchar_t* name, unsigned long& value);
VEK_API bool regRead(const wchar_t* key, const wchar_t* name, CVekString& value);
VEK_API bool regWrite(const wchar_t* key, const wchar_t* name, unsigned long value);
VEK_API bool regWrite(const wchar_t* key, const wchar_t* name, const wchar_t* value);

/// The settings key of an application of the suite: ("VEK") gives "Software\OSTWERK\VEK", null or an empty text the
/// key above all of them.
/// @return always true
VEK_API bool regAppKey(CVekString& key, const wchar_t* text);

/// The path of a file of the suite in the application's folder, made of a family, a module and an ending:
/// ("Vek", "Mfc", "Dll") names this library's own module, "Vek_2018_20_64_Mfc.dll". The folder is that of the file this
/// library is part of.
/// @return whether the file is there
VEK_API bool appFileName(CVekString& result, const wchar_t* family, const wchar_t* module, const wchar_t* ending);

} // namespace VEK

#ifdef _WIN32
struct IDispatch;
namespace VEK
{

/// The running automation server of a ProgID. The caller owns the reference that comes with it.
/// @return false, with null in `server`, when none runs
VEK_API bool dispatchFromProgID(const wchar_t* progId, IDispatch** server);

/// The path of the program file of a ProgID's automation server, without quotes and arguments.
/// @return false, with `path` unchanged, when none is registered
VEK_API bool serverFromProgID(const wchar_t* progId, CVekString& path);

} // namespace VEK
#endif

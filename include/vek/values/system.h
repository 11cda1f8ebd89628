/// @file
/// Services of the operating system: programs, per-user settings, the suite's own files.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// Starts a program, or opens a document, folder or web address with its associated program, without a shell.
/// @param command a web address; the path of a file; or a program and its arguments, separated by blanks. Double quotes
/// enclose text that contains blanks; without them the longest prefix that names an existing file is the program
/// @param timeout milliseconds to wait for its end, 0 for not at all; a program that cannot be waited for, such as one
/// that was already running, is taken as ended
/// @param show whether its window is shown; only used on Windows
/// @return whether it was started and, with a timeout, ended in time
VEK_API bool execute(const wchar_t* command, unsigned long timeout, bool show);

/// Reads and writes a per-user setting: a value of a key, whose levels are separated by backslashes. Key and name are
/// case-insensitive; a null or empty name is the key's default value. On Windows the settings are in the registry under
/// HKEY_CURRENT_USER, as REG_DWORD and REG_SZ; what is written below a volatile key is volatile. Elsewhere they are in
/// the text file "vek/settings" of the user's configuration folder, $XDG_CONFIG_HOME or else ~/.config.
/// @return false if the key or a value of that type is absent (the target stays as it was) or cannot be written
VEK_API bool regRead(const wchar_t* key, const wchar_t* name, unsigned long& value);
VEK_API bool regRead(const wchar_t* key, const wchar_t* name, CVekString& value);
VEK_API bool regWrite(const wchar_t* key, const wchar_t* name, unsigned long value);
VEK_API bool regWrite(const wchar_t* key, const wchar_t* name, const wchar_t* value);

/// The settings key of an application of the suite: ("VEK") gives "Software\OSTWERK\VEK", null or an empty text their
/// parent key.
/// @return always true
VEK_API bool regAppKey(CVekString& key, const wchar_t* text);

/// The path of a file of the suite in the application's folder, made from a family, a module and a file extension:
/// ("Vek", "Mfc", "Dll") gives this library's own module, "Vek_2018_20_64_Mfc.dll". The folder is that of the module
/// that contains this library.
/// @return whether the file exists
VEK_API bool appFileName(CVekString& result, const wchar_t* family, const wchar_t* module, const wchar_t* ending);

} // namespace VEK

#ifdef _WIN32
struct IDispatch;
namespace VEK
{

/// The running automation server of a ProgID. The caller owns the returned reference.
/// @return false, with null in `server`, if none is running, or it has not answered within 5 seconds
VEK_API bool dispatchFromProgID(const wchar_t* progId, IDispatch** server);

/// The path of the program file of a ProgID's automation server, without quotes and arguments.
/// @return false, with `path` unchanged, when none is registered
VEK_API bool serverFromProgID(const wchar_t* progId, CVekString& path);

} // namespace VEK
#endif

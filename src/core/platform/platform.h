/// @file
/// What the library needs from the operating system, and functions for characters and files. What differs by system is
/// in twin files `*_posix.cpp` and `*_win.cpp`.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace VEK::platform
{

/// The other case of a character, by the simple mappings of Unicode, the same in every system and locale. A character
/// without a single counterpart, such as "ß", or beyond the basic plane stays as it is.
wchar_t upperOf(wchar_t character);
wchar_t lowerOf(wchar_t character);

/// Whether two texts are equal, ignoring case.
bool equalNoCase(std::wstring_view a, std::wstring_view b);

/// UTF-8 of a wide text, and the wide text of UTF-8. Invalid input becomes U+FFFD. A wide text may contain surrogate
/// pairs in every build.
std::string utf8Of(std::wstring_view text);
std::wstring wideOf(std::string_view utf8);

/// Appends a code point to a wide text, as a surrogate pair where `wchar_t` has 16 bits.
void appendCodePoint(std::wstring& text, char32_t code);

/// Code page 1252 of a wide text, with "?" for characters it lacks, and back. Its five undefined bytes are the control
/// characters of the same number.
std::string codePage1252Of(std::wstring_view text);
std::wstring wideOfCodePage1252(std::string_view bytes);

/// The same for the system's own 8-bit code page: the ANSI code page on Windows, 1252 elsewhere.
std::string systemCodePageOf(std::wstring_view text);
std::wstring wideOfSystemCodePage(std::string_view bytes);

/// A path from wide text and back, in every locale. Streams open such a path: `std::ifstream in(pathOf(name))`.
std::filesystem::path pathOf(std::wstring_view text);
std::wstring textOf(const std::filesystem::path& path);

/// A whole file.
/// @return false, with `bytes` empty, if there is no such file, or it is a folder or cannot be read
bool readFile(const std::filesystem::path& path, std::string& bytes);

/// Whether a file or folder exists and this process may read it.
bool isReadable(const std::filesystem::path& path);

/// Writes a whole file. The old content is kept until the new one is complete, and if writing fails.
bool writeFile(const std::filesystem::path& path, std::string_view bytes);

/// A file that is written piece by piece. The bytes go to a temporary file in the same folder, so that the old content
/// is kept until `commit`; without it the destructor removes the temporary file. After a failure every call returns
/// false.
class FileWriter
{
public:
    explicit FileWriter(const std::filesystem::path& path);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    bool write(std::string_view bytes);

    /// Overwrites bytes that were written before; the next `write` continues at the end.
    bool rewrite(std::uint64_t offset, std::string_view bytes);

    /// Replaces the old content by the new one.
    bool commit();

private:
    bool m_good = false;
    std::filesystem::path m_target;
    std::filesystem::path m_scratch; ///< empty for a device or pipe, which has no old content, and after `commit`
    std::ofstream m_out;
};

/// The arguments of this process after the program's name, in UTF-8. Sets its console to UTF-8.
/// @param argc, argv as the process got them
std::vector<std::string> programArguments(int argc, const char* const* argv);

/// Whether standard error is a terminal, on which a line can be written over.
bool errorsGoToTerminal();

/// The program file of this process.
std::filesystem::path programPath();

/// The file that this library's code was loaded from: the program, if statically linked.
std::filesystem::path modulePath();

/// A command text taken apart.
struct Command {
    std::wstring program;
    std::wstring arguments; ///< separated by blanks, with double quotes around one that contains blanks
};

/// The parts of a command text. A quoted beginning is the program. Without quotes it is the longest prefix that ends at
/// a blank and names an existing file, or else the first word.
Command commandOf(std::wstring_view text);

/// Runs a program, or opens a document, folder or web address with its associated program, without a shell.
/// @param command as for `commandOf`, or an address
/// @param timeout milliseconds to wait for the program's end, 0 for not at all; a program that cannot be waited for is
/// taken as ended
/// @param show whether its window is shown, if the system supports that
/// @return whether it was started and, with a timeout, ended in time
bool launch(std::wstring_view command, unsigned long timeout, bool show);

/// A per-user setting: a number or a text, of the name `name` in a key whose levels are separated by backslashes. Both
/// are case-insensitive. On Windows the settings are in the registry below HKEY_CURRENT_USER. Elsewhere they are in the
/// file "vek/settings" of the user's configuration folder, $XDG_CONFIG_HOME or else ~/.config.
/// @return false if there is none of that type (`value` stays as it was) or it cannot be written
bool settingRead(std::wstring_view key, std::wstring_view name, unsigned long& value);
bool settingRead(std::wstring_view key, std::wstring_view name, std::wstring& value);
bool settingWrite(std::wstring_view key, std::wstring_view name, unsigned long value);
bool settingWrite(std::wstring_view key, std::wstring_view name, std::wstring_view value);

/// The two pictures of an icon, rows from the top: pixels as red, green and blue from the lowest byte up. The mask is
/// white where the icon is transparent. Without `color` the mask has twice the height, with the colours in its lower
/// half.
struct IconBits {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> color;
    std::vector<std::uint32_t> mask;
};

/// A system icon in its own size, and an icon from a loaded module's resources at cx by cy (0: its own size). Windows
/// only.
/// @return false if there is none of that number
bool systemIcon(int id, IconBits& icon);
bool moduleIcon(const std::filesystem::path& module, int id, int cx, int cy, IconBits& icon);

} // namespace VEK::platform

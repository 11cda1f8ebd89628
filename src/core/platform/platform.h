/// @file
/// What the library needs of the system it runs on, and of the characters and files of every system. What differs
/// by system stands in twin files `*_posix.cpp` and `*_win.cpp`.
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
/// without a single counterpart stays, as "ß" does, and so does one beyond the basic plane.
wchar_t upperOf(wchar_t character);
wchar_t lowerOf(wchar_t character);

/// Whether two texts are equal without regard to case.
bool equalNoCase(std::wstring_view a, std::wstring_view b);

/// UTF-8 of a wide text, and the wide text of UTF-8. What is not valid in the source becomes U+FFFD. A wide text may
/// hold surrogate pairs in every build.
std::string utf8Of(std::wstring_view text);
std::wstring wideOf(std::string_view utf8);

/// Appends a code point to a wide text, as a surrogate pair where `wchar_t` has 16 bits.
void appendCodePoint(std::wstring& text, char32_t code);

/// Code page 1252 of a wide text, with "?" for what it lacks, and back. The five bytes that it leaves open stand for
/// the control characters of the same number.
std::string codePage1252Of(std::wstring_view text);
std::wstring wideOfCodePage1252(std::string_view bytes);

/// The same for the system's own 8-bit code page: the ANSI code page on Windows, 1252 elsewhere.
std::string systemCodePageOf(std::wstring_view text);
std::wstring wideOfSystemCodePage(std::string_view bytes);

/// A path from wide text and back, in every locale. Streams open such a path: `std::ifstream in(pathOf(name))`.
std::filesystem::path pathOf(std::wstring_view text);
std::wstring textOf(const std::filesystem::path& path);

/// A whole file.
/// @return false, with `bytes` empty, when there is no such file, when it is a folder or cannot be read
bool readFile(const std::filesystem::path& path, std::string& bytes);

/// Writes a whole file. Its old content stays until the new one is complete, and stays when that fails.
bool writeFile(const std::filesystem::path& path, std::string_view bytes);

/// A file that is written piece by piece. The bytes go to a file beside it, so that an old content stays until
/// `commit`; without that the destructor leaves nothing behind. After a failure every call gives false.
class FileWriter
{
public:
    explicit FileWriter(const std::filesystem::path& path);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    bool write(std::string_view bytes);

    /// Writes over bytes that are there already; the next `write` goes on at the end.
    bool rewrite(std::uint64_t offset, std::string_view bytes);

    /// Puts the new content in the place of the old one.
    bool commit();

private:
    bool m_good = false;
    std::filesystem::path m_target;
    std::filesystem::path m_scratch; ///< empty for a device or pipe, which has no old content, and after `commit`
    std::ofstream m_out;
};

/// The arguments of this process behind the program's name, in UTF-8. Its console takes UTF-8 from then on.
/// @param argc, argv as the process got them
std::vector<std::string> programArguments(int argc, const char* const* argv);

/// The program file of this process.
std::filesystem::path programPath();

/// The file that this library's code was loaded from: the program where it is linked in.
std::filesystem::path modulePath();

/// A command text taken apart.
struct Command {
    std::wstring program;
    std::wstring arguments; ///< parted by blanks, with double quotes around one that holds blanks itself
};

/// The parts of a command text. A quoted beginning is the program. Without quotes it is the longest beginning that ends
/// at a blank and names an existing file, and else the first word.
Command commandOf(std::wstring_view text);

/// Runs a program, or opens a document, folder or web address with the program of its kind. No shell reads the text.
/// @param command as for `commandOf`, or an address
/// @param timeout milliseconds to wait for the program's end, 0 for not at all; a program that the system does not
/// let us wait for counts as ended
/// @param show whether its window is shown, where the system knows such a wish
/// @return whether it was started and, with a timeout, ended in time
bool launch(std::wstring_view command, unsigned long timeout, bool show);

/// A setting of the user: a number or a text, by the name `name` below a key whose levels are parted by backslashes.
/// Case does not matter in either. On Windows they live in the registry below HKEY_CURRENT_USER. Elsewhere they live in
/// the file "vek/settings" of the user's configuration folder, $XDG_CONFIG_HOME or else ~/.config.
/// @return false when there is none of that type (`value` stays) or it cannot be written
bool settingRead(std::wstring_view key, std::wstring_view name, unsigned long& value);
bool settingRead(std::wstring_view key, std::wstring_view name, std::wstring& value);
bool settingWrite(std::wstring_view key, std::wstring_view name, unsigned long value);
bool settingWrite(std::wstring_view key, std::wstring_view name, std::wstring_view value);

/// The two pictures of an icon, rows from the top: pixels as red, green and blue from the lowest byte up. The mask is
/// white where the icon leaves what lies below. Without `color` the mask has twice the height, colours below.
struct IconBits {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> color;
    std::vector<std::uint32_t> mask;
};

/// An icon of the system, in its own size, and one of a loaded module's resources, at cx by cy (0: its own size).
/// Only Windows has any.
/// @return false when there is none of that number
bool systemIcon(int id, IconBits& icon);
bool moduleIcon(const std::filesystem::path& module, int id, int cx, int cy, IconBits& icon);

} // namespace VEK::platform

#include "core/platform/platform.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>
#include <vector>

// The file of settings is UTF-8 text: a line "[key]" for each key, and below it a line "name=number:123" or
// "name=text:abc" for each value. A character that would break this form is written as "%" and two hexadecimal digits
// for each byte. Lines of any other form are kept.

namespace fs = std::filesystem;
using namespace VEK::platform;

namespace
{

fs::path settingsPath()
{
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    if (folder && folder[0] == '/')
        return fs::path(folder) / "vek" / "settings";
    const char* home = std::getenv("HOME");
    if (!home || home[0] != '/') {
        const passwd* user = getpwuid(getuid());
        home = user ? user->pw_dir : nullptr;
    }
    return home ? fs::path(home) / ".config" / "vek" / "settings" : fs::path();
}

/// Keeps other processes and threads from changing the settings between our reading and writing.
class Lock
{
public:
    explicit Lock(fs::path path)
    {
        path += ".lock";
        m_file = open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
        constexpr int kTries = 200;
        for (int i = 0; m_file >= 0 && i < kTries && !m_held; ++i) {
            m_held = flock(m_file, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR);
            if (!m_held)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock()
    {
        if (m_file >= 0)
            close(m_file);
    }

    bool held() const { return m_held; }

private:
    int m_file = -1;
    bool m_held = false;
};

std::string encoded(std::wstring_view text, std::string_view special)
{
    std::string line;
    for (const char c : utf8Of(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F || c == '%' || special.find(c) != special.npos) {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", byte);
            line += code;
        } else {
            line += c;
        }
    }
    return line;
}

std::wstring decoded(std::string_view line)
{
    std::string bytes;
    for (std::size_t i = 0; i < line.size(); ++i) {
        unsigned byte = 0;
        if (line[i] == '%' && i + 2 < line.size() &&
            std::from_chars(line.data() + i + 1, line.data() + i + 3, byte, 16).ptr == line.data() + i + 3) {
            bytes += static_cast<char>(byte);
            i += 2;
        } else {
            bytes += line[i];
        }
    }
    return wideOf(bytes);
}

/// @return false if the file exists and cannot be read
bool readLines(const fs::path& path, std::vector<std::string>& lines)
{
    std::string text;
    std::error_code error;
    if (!readFile(path, text) && fs::exists(path, error))
        return false;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        lines.push_back(text.substr(from, end - from));
        if (!lines.back().empty() && lines.back().back() == '\r')
            lines.back().pop_back();
        from = end + 1;
    }
    return true;
}

bool isSection(const std::string& line)
{
    return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

/// The position of a name's value.
struct Place {
    std::size_t line = 0;    ///< its line, or else the line before which to insert it
    bool hasSection = false; ///< whether that line is in the key's section
    bool hasValue = false;
};

Place placeOf(const std::vector<std::string>& lines, std::wstring_view key, std::wstring_view name)
{
    Place place{lines.size()};
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        if (isSection(lines[i])) {
            inside = equalNoCase(decoded(line.substr(1, line.size() - 2)), key);
            if (inside)
                place = {i + 1, true};
        } else if (inside) {
            const std::size_t equals = line.find('=');
            if (equals == line.npos)
                continue;
            if (equalNoCase(decoded(line.substr(0, equals)), name))
                return {i, true, true};
            place.line = i + 1;
        }
    }
    return place;
}

/// The value after "name=", preceded by its type; empty if there is none.
std::string valueOf(std::wstring_view key, std::wstring_view name, std::string_view type)
{
    std::vector<std::string> lines;
    readLines(settingsPath(), lines);
    const Place place = placeOf(lines, key, name);
    if (!place.hasValue)
        return {};
    const std::string& line = lines[place.line];
    const std::size_t start = line.find('=') + 1;
    return line.compare(start, type.size(), type) == 0 ? line.substr(start) : std::string();
}

bool write(std::wstring_view key, std::wstring_view name, const std::string& value)
{
    const fs::path path = settingsPath();
    if (path.empty())
        return false;
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    const Lock lock(path);
    std::vector<std::string> lines;
    if (!lock.held() || !readLines(path, lines))
        return false;
    const Place place = placeOf(lines, key, name);
    const std::string line = encoded(name, "=[") + "=" + value;
    if (place.hasValue) {
        lines[place.line] = line;
    } else {
        auto at = lines.begin() + static_cast<std::ptrdiff_t>(place.line);
        if (!place.hasSection)
            at = lines.insert(at, "[" + encoded(key, "") + "]") + 1;
        lines.insert(at, line);
    }
    std::string text;
    for (const std::string& each : lines)
        text += each + "\n";
    return writeFile(path, text);
}

} // namespace

bool VEK::platform::settingRead(std::wstring_view key, std::wstring_view name, unsigned long& value)
{
    constexpr std::string_view kType = "number:";
    const std::string text = valueOf(key, name, kType);
    if (text.empty())
        return false;
    unsigned long number = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + kType.size(), end, number);
    if (error != std::errc() || rest != end)
        return false;
    value = number;
    return true;
}

bool VEK::platform::settingRead(std::wstring_view key, std::wstring_view name, std::wstring& value)
{
    constexpr std::string_view kType = "text:";
    const std::string text = valueOf(key, name, kType);
    if (text.empty())
        return false;
    value = decoded(std::string_view(text).substr(kType.size()));
    return true;
}

bool VEK::platform::settingWrite(std::wstring_view key, std::wstring_view name, unsigned long value)
{
    return write(key, name, "number:" + std::to_string(value));
}

bool VEK::platform::settingWrite(std::wstring_view key, std::wstring_view name, std::wstring_view value)
{
    return write(key, name, "text:" + encoded(value, ""));
}

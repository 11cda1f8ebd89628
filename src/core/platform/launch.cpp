#include "core/platform/outside.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace
{

constexpr wchar_t kBlanks[] = L" \t\r\n";
constexpr std::size_t kLongest = 32767; ///< of a command text on Windows

std::wstring_view trimmed(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == text.npos ? std::wstring_view() : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

/// Whether the text starts with a scheme such as "https:"; one letter is a drive.
bool isAddress(std::wstring_view text)
{
    std::size_t length = 0;
    while (length < text.size() && ((text[length] >= L'a' && text[length] <= L'z') ||
                                    (text[length] >= L'A' && text[length] <= L'Z') || text[length] == L'-'))
        ++length;
    return length > 1 && length < text.size() && text[length] == L':';
}

bool isFile(std::wstring_view name)
{
    std::error_code error;
    return fs::is_regular_file(VEK::platform::pathOf(name), error);
}

} // namespace

namespace VEK::platform
{

Command commandOf(std::wstring_view text)
{
    text = trimmed(text);
    const auto split = [&](std::size_t end, std::size_t from, std::size_t start) {
        return Command{std::wstring(text.substr(start, end - start)), std::wstring(trimmed(text.substr(from)))};
    };
    if (!text.empty() && text[0] == L'"') {
        const std::size_t quote = std::min(text.find(L'"', 1), text.size());
        return split(quote, std::min(quote + 1, text.size()), 1);
    }
    std::error_code error;
    if (fs::exists(pathOf(text), error))
        return split(text.size(), text.size(), 0);
    for (std::size_t end = text.find_last_of(kBlanks); end != text.npos && end > 0;
         end = text.find_last_of(kBlanks, end - 1)) {
        if (isFile(text.substr(0, end)))
            return split(end, end, 0);
    }
    const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
    return split(end, end, 0);
}

bool launch(std::wstring_view text, unsigned long timeout, bool show)
{
    text = trimmed(text);
    if (text.empty() || text.size() > kLongest)
        return false;
    if (isAddress(text))
        return outside({OutsideCall::What::document, std::wstring(text), {}, timeout, show});
    Command command = commandOf(text);
    std::error_code error;
    const fs::file_status status = fs::status(pathOf(command.program), error);
    constexpr fs::perms kRunnable = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    const bool isDocument =
        fs::is_directory(status) || (fs::exists(status) && (status.permissions() & kRunnable) == fs::perms::none);
    return outside({isDocument ? OutsideCall::What::document : OutsideCall::What::program, std::move(command.program),
                    std::move(command.arguments), timeout, show});
}

} // namespace VEK::platform

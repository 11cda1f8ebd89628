#include "core/platform/platform.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The characters of code page 1252 at 0x80 to 0x9F, from the table published by the Unicode Consortium.
constexpr wchar_t k1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                               0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                               0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

namespace VEK::platform
{

void appendCodePoint(std::wstring& text, char32_t code)
{
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
        text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(code);
    }
}

std::string utf8Of(std::wstring_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = static_cast<char32_t>(text[i]);
        if (code < 0x80) {
            bytes += static_cast<char>(code);
            continue;
        }
        if (isHighSurrogate(code) && i + 1 < text.size() && isLowSurrogate(static_cast<char32_t>(text[i + 1])))
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        if (isHighSurrogate(code) || isLowSurrogate(code) || code > 0x10FFFF)
            code = kReplacement;
        const int tail = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr char32_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
        bytes += static_cast<char>(kLead[tail] | code >> (6 * tail));
        for (int shift = 6 * (tail - 1); shift >= 0; shift -= 6)
            bytes += static_cast<char>(0x80 | (code >> shift & 0x3F));
    }
    return bytes;
}

std::wstring wideOf(std::string_view utf8)
{
    std::wstring wide;
    wide.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const char32_t lead = static_cast<unsigned char>(utf8[i++]);
        if (lead < 0x80) {
            wide += static_cast<wchar_t>(lead);
            continue;
        }
        if (lead < 0xC2 || lead > 0xF4) {
            wide += static_cast<wchar_t>(kReplacement);
            continue;
        }
        const unsigned tail = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        char32_t code = lead & (0x3Fu >> tail);
        unsigned taken = 0;
        for (; taken < tail && i < utf8.size() && (utf8[i] & 0xC0) == 0x80; ++taken)
            code = code << 6 | (static_cast<unsigned char>(utf8[i++]) & 0x3F);
        constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
        const bool valid = taken == tail && code >= kLeast[tail] && code <= 0x10FFFF && !isHighSurrogate(code) &&
                           !isLowSurrogate(code);
        appendCodePoint(wide, valid ? code : kReplacement);
    }
    return wide;
}

std::string codePage1252Of(std::wstring_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) {
        const auto code = static_cast<char32_t>(character);
        const wchar_t* entry = std::find(std::begin(k1252), std::end(k1252), character);
        if (entry != std::end(k1252))
            bytes += static_cast<char>(0x80 + (entry - k1252));
        else
            bytes += code < 0x80 || (code >= 0xA0 && code <= 0xFF) ? static_cast<char>(code) : '?';
    }
    return bytes;
}

std::wstring wideOfCodePage1252(std::string_view bytes)
{
    std::wstring wide;
    wide.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        wide += code >= 0x80 && code < 0xA0 ? k1252[code - 0x80] : static_cast<wchar_t>(code);
    }
    return wide;
}

bool equalNoCase(std::wstring_view a, std::wstring_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return lowerOf(x) == lowerOf(y); });
}

} // namespace VEK::platform

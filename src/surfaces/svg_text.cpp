#include "surfaces/svg_text.h"

#include <charconv>

namespace VEK::svg
{
namespace
{

/// Writes the digits of thousandths, without zeros at the end of the fraction.
char* put(char* to, Milli value)
{
    std::uint64_t left = static_cast<std::uint64_t>(value);
    if (value < 0) {
        *to++ = '-';
        left = 0 - left;
    }
    to = std::to_chars(to, to + 20, left / 1000).ptr;
    const unsigned fraction = static_cast<unsigned>(left % 1000);
    if (fraction != 0) {
        *to++ = '.';
        *to++ = static_cast<char>('0' + fraction / 100);
        if (fraction % 100 != 0)
            *to++ = static_cast<char>('0' + fraction / 10 % 10);
        if (fraction % 10 != 0)
            *to++ = static_cast<char>('0' + fraction % 10);
    }
    return to;
}

} // namespace

Text& Text::operator<<(Milli value)
{
    char digits[32];
    m_buffer.append(digits, put(digits, value));
    return *this;
}

void Text::addPoint(char letter, const MilliPoint& p)
{
    char text[64];
    text[0] = letter;
    char* end = put(text + 1, p.x);
    *end++ = ' ';
    m_buffer.append(text, put(end, p.y));
}

void Text::addColor(unsigned color)
{
    m_buffer += '#';
    for (const int shift : {4, 0, 12, 8, 20, 16})
        m_buffer += "0123456789abcdef"[color >> shift & 15u];
}

void Text::addBase64(std::string_view bytes)
{
    static constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto byte = [&](std::size_t at) {
        return at < bytes.size() ? std::uint32_t{static_cast<unsigned char>(bytes[at])} : 0u;
    };
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::uint32_t group = byte(at) << 16 | byte(at + 1) << 8 | byte(at + 2);
        char digits[4];
        for (std::size_t i = 0; i < 4; ++i)
            digits[i] = at + i <= bytes.size() ? kDigits[group >> (18 - 6 * i) & 63] : '=';
        m_buffer.append(digits, 4);
        settle();
    }
}

void Text::flush()
{
    m_good = m_good && m_sink.write(m_buffer);
    m_buffer.clear();
}

} // namespace VEK::svg

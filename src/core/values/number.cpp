#include <vek/values/units.h>

#include "core/values/whole.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <limits>
#include <string>

namespace
{

constexpr std::size_t kGroup = 3; ///< digits between two thousands separators

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// Blanks, including those that word processors and number formats insert.
bool isBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == 0xA0 || c == 0x2009 || c == 0x202F;
}

bool isMark(wchar_t c)
{
    return c == L'.' || c == L',';
}

bool isMinus(wchar_t c)
{
    return c == L'-' || c == 0x2212;
}

bool isPrime(wchar_t c)
{
    return c == L'\'' || c == 0x2032 || c == 0x2018 || c == 0x2019 || c == 0xB4;
}

/// Reads numbers off the front of a terminated text.
class Reader
{
public:
    explicit Reader(const wchar_t* text) : m_at(text ? text : L"") {}

    wchar_t ahead(std::size_t by = 0) const { return m_at[by]; } // never called past the terminator

    void skip() { ++m_at; }
    void skipBlanks()
    {
        while (isBlank(*m_at))
            ++m_at;
    }

    /// -1.0 at a minus sign, else 1.0; a sign is skipped.
    double sign()
    {
        const bool minus = isMinus(*m_at);
        if (minus || *m_at == L'+')
            ++m_at;
        return minus ? -1.0 : 1.0;
    }

    /// A number with a decimal point.
    bool plainNumber(double& value)
    {
        std::string text = digits();
        if (ahead() == L'.' && (isDigit(ahead(1)) || !text.empty()))
            decimals(text);
        return finish(text, value);
    }

    /// A number as people write it: with a point or comma as decimal separator and perhaps blanks or the other mark
    /// between thousands. A single mark is the decimal separator; it separates thousands if exactly three digits and
    /// another mark follow.
    bool typedNumber(double& value)
    {
        std::string text = digits();
        wchar_t grouping = L'\0';
        while (!text.empty() && (grouping || text.size() <= kGroup) && isGroup(grouping)) {
            grouping = *m_at;
            ++m_at;
            text += digits();
        }
        if (isMark(ahead()) && (isDigit(ahead(1)) || !text.empty()))
            decimals(text);
        return finish(text, value);
    }

    /// A number, a fraction, or both, as in "15 1/2" and "15-1/2".
    bool mixedNumber(double& value)
    {
        if (!typedNumber(value))
            return false;
        double denominator = 0.0;
        if (over(denominator)) {
            value /= denominator;
            return true;
        }
        const wchar_t* start = m_at;
        skipBlanks();
        if (*m_at == L'-')
            ++m_at;
        skipBlanks();
        const std::string numeratorText = m_at == start ? std::string() : digits();
        double numerator = 0.0;
        if (!numeratorText.empty() && finish(numeratorText, numerator) && over(denominator))
            value += numerator / denominator;
        else
            m_at = start;
        return true;
    }

private:
    std::string digits()
    {
        std::string text;
        while (isDigit(*m_at))
            text += static_cast<char>(*m_at++);
        return text;
    }

    void decimals(std::string& text)
    {
        ++m_at;
        text += '.';
        text += digits();
    }

    /// Whether there is a thousands separator here, given the previous one.
    bool isGroup(wchar_t before) const
    {
        const bool blank = isBlank(*m_at);
        if ((!isMark(*m_at) && !blank) || (before && *m_at != before))
            return false;
        for (std::size_t i = 1; i <= kGroup; ++i) {
            if (!isDigit(m_at[i]))
                return false;
        }
        const wchar_t next = m_at[kGroup + 1];
        if (isDigit(next) || next == L'/')
            return false;
        return blank || before || isMark(next);
    }

    /// A slash and a denominator other than zero.
    bool over(double& denominator)
    {
        const wchar_t* start = m_at;
        skipBlanks();
        if (*m_at == L'/') {
            ++m_at;
            skipBlanks();
            const std::string text = digits();
            if (!text.empty() && finish(text, denominator) && denominator != 0.0)
                return true;
        }
        m_at = start;
        return false;
    }

    /// Reads an exponent and computes the value.
    /// @param text digits with at most one point
    bool finish(std::string text, double& value)
    {
        if (text.empty())
            return false;
        bool tiny = text.find_first_not_of('0') >= text.find('.');
        if (*m_at == L'e' || *m_at == L'E') {
            const bool minus = m_at[1] == L'-';
            const wchar_t* start = m_at;
            m_at += minus || m_at[1] == L'+' ? 2 : 1;
            const std::string exponent = digits();
            if (exponent.empty()) {
                m_at = start;
            } else {
                tiny = minus;
                text += minus ? "e-" : "e";
                text += exponent;
            }
        }
        const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ec == std::errc::result_out_of_range)
            value = tiny ? 0.0 : std::numeric_limits<double>::max();
        return true;
    }

    const wchar_t* m_at;
};

double typedNumber(const wchar_t* text)
{
    Reader reader(text);
    reader.skipBlanks();
    const double sign = reader.sign();
    reader.skipBlanks();
    double value = 0.0;
    if (!reader.mixedNumber(value))
        return 0.0;
    reader.skipBlanks();
    if (isPrime(reader.ahead()) && !isPrime(reader.ahead(1))) { // two primes mean inches
        reader.skip();
        reader.skipBlanks();
        if (isMinus(reader.ahead()))
            reader.skip();
        reader.skipBlanks();
        double inches = 0.0;
        reader.mixedNumber(inches);
        constexpr double kInchesPerFoot = 12.0;
        value = value * kInchesPerFoot + inches;
    }
    return sign * std::min(value, std::numeric_limits<double>::max());
}

} // namespace

double VEK::nan()
{
    return std::numeric_limits<double>::quiet_NaN();
}

int VEK::atoi(const wchar_t* text)
{
    Reader reader(text);
    reader.skipBlanks();
    const bool minus = reader.sign() < 0.0;
    const long long limit = minus ? -static_cast<long long>(INT_MIN) : INT_MAX;
    long long value = 0;
    for (; isDigit(reader.ahead()); reader.skip())
        value = std::min(limit, value * 10 + (reader.ahead() - L'0'));
    return static_cast<int>(minus ? -value : value);
}

double VEK::atof(const wchar_t* text)
{
    return VEK::whole(0.0, [&] {
        Reader reader(text);
        reader.skipBlanks();
        const double sign = reader.sign();
        double value = 0.0;
        return reader.plainNumber(value) ? sign * value : 0.0;
    });
}

double vekAtoF(const wchar_t* text)
{
    return VEK::whole(0.0, [&] { return typedNumber(text); });
}

#include <vek/values/units.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

constexpr int kInchesPerFoot = 12;

/// The text under construction; no value fills the buffer.
class Text
{
public:
    Text& operator<<(char character)
    {
        m_text[m_length++] = static_cast<wchar_t>(character);
        return *this;
    }
    Text& operator<<(const char* text)
    {
        while (*text)
            *this << *text++;
        return *this;
    }
    Text& operator<<(int number)
    {
        char digits[12];
        const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        for (const char* digit = digits; digit != end; ++digit)
            *this << *digit;
        return *this;
    }

    const wchar_t* finished()
    {
        m_text[m_length] = L'\0';
        return m_text;
    }

private:
    wchar_t m_text[vekRtoSSize];
    int m_length = 0;
};

/// A number of at least 0 in decimal form, from the shortest digits that identify the double. Rounding these and not
/// the binary value gives what a user expects: 2.675 becomes 2.68.
class Decimal
{
public:
    explicit Decimal(double magnitude)
    {
        char text[32];
        const char* end = std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific).ptr;
        const char* e = std::find(static_cast<const char*>(text), end, 'e');
        for (const char* c = text; c != e; ++c) {
            if (*c != '.')
                m_digits[m_count++] = *c;
        }
        std::from_chars(e + (e[1] == '+' ? 2 : 1), end, m_point);
        ++m_point;
        if (m_digits[0] == '0')
            m_count = 0;
    }

    bool isZero() const { return m_count == 0; }

    /// The exponent of ten of the first digit.
    int exponent() const { return isZero() ? 0 : m_point - 1; }

    /// The digit of 10 to the power `power`.
    char digit(int power) const
    {
        const int at = m_point - 1 - power;
        return at >= 0 && at < m_count ? m_digits[at] : '0';
    }

    /// Rounds to a number of decimals, halves away from zero.
    void round(int decimals)
    {
        const int kept = m_point + decimals;
        if (kept >= m_count)
            return;
        const bool up = kept >= 0 && m_digits[kept] >= '5';
        m_count = std::max(kept, 0);
        if (!up)
            return;
        while (m_count > 0 && m_digits[m_count - 1] == '9')
            --m_count;
        if (m_count > 0) {
            ++m_digits[m_count - 1];
        } else {
            m_digits[0] = '1';
            m_count = 1;
            ++m_point;
        }
    }

private:
    char m_digits[20]; ///< a double has at most 17
    int m_count = 0;
    int m_point = 0; ///< digits before the decimal point; the number is below 1 if it is 0 or less
};

void putInteger(Text& text, const Decimal& number)
{
    for (int power = std::max(number.exponent(), 0); power >= 0; --power)
        text << number.digit(power);
}

/// The point and the digits after it; the digit before the point is that of 10 to the power `unit`.
void putDecimals(Text& text, const Decimal& number, int unit, int decimals, bool suppressZeros)
{
    while (suppressZeros && decimals > 0 && number.digit(unit - decimals) == '0')
        --decimals;
    if (decimals > 0)
        text << '.';
    for (int i = 1; i <= decimals; ++i)
        text << number.digit(unit - i);
}

/// Divides a whole number of inches by 12.
/// @param text receives the feet, unchanged if there are none
/// @return the remaining inches
int putFeet(Text& text, const Decimal& inches)
{
    int rest = 0;
    bool any = false;
    for (int power = inches.exponent(); power >= 0; --power) {
        rest = rest * 10 + (inches.digit(power) - '0');
        any = any || rest >= kInchesPerFoot;
        if (any)
            text << static_cast<char>('0' + rest / kInchesPerFoot);
        rest %= kInchesPerFoot;
    }
    return rest;
}

/// Feet and inches; `fraction` writes what follows the whole inches and returns whether there is anything.
/// Zero suppression leaves out feet of zero and inches of zero, as the value 0 of DIMZIN does.
template <class Fraction>
void putFeetAndInches(Text& text, const Decimal& wholeInches, bool anyFraction, bool suppressZeros, Fraction fraction)
{
    const bool anyFeet = wholeInches.exponent() > 1 ||
                         (wholeInches.digit(1) - '0') * 10 + (wholeInches.digit(0) - '0') >= kInchesPerFoot;
    const int inches = putFeet(text, wholeInches);
    if (!anyFeet && !suppressZeros)
        text << '0';
    if (anyFeet || !suppressZeros)
        text << '\'';
    if (anyFeet && suppressZeros && inches == 0 && !anyFraction)
        return;
    if (anyFeet || !suppressZeros)
        text << '-';
    fraction(inches, !anyFeet && suppressZeros);
    text << '"';
}

void putScientific(Text& text, Decimal number, int precision, bool suppressZeros)
{
    number.round(precision - number.exponent());
    const int exponent = number.exponent();
    text << number.digit(exponent);
    putDecimals(text, number, exponent, precision, suppressZeros);
    text << 'E' << (exponent < 0 ? '-' : '+') << (std::abs(exponent) < 10 ? "0" : "") << std::abs(exponent);
}

void putEngineering(Text& text, const Decimal& number, int precision, bool suppressZeros)
{
    bool anyFraction = false;
    for (int i = 1; i <= precision; ++i)
        anyFraction = anyFraction || number.digit(-i) != '0';
    putFeetAndInches(text, number, anyFraction, suppressZeros, [&](int inches, bool) {
        text << inches;
        putDecimals(text, number, 0, precision, suppressZeros);
    });
}

/// A number as a whole and a reduced fraction whose denominator is a power of two.
struct Mixed {
    double whole;
    int numerator;
    int denominator;

    Mixed(double magnitude, int precision) : whole(std::floor(magnitude)), denominator(1 << precision)
    {
        numerator = static_cast<int>(std::round((magnitude - whole) * denominator));
        if (numerator == denominator) {
            whole += 1.0;
            numerator = 0;
        }
        while (numerator != 0 && numerator % 2 == 0) {
            numerator /= 2;
            denominator /= 2;
        }
    }

    bool isZero() const { return whole == 0.0 && numerator == 0; }

    /// The fraction after a whole that the caller has written or, being zero, left out.
    void putFraction(Text& text, bool afterWhole) const
    {
        if (numerator == 0)
            return;
        if (afterWhole)
            text << ' ';
        text << numerator << '/' << denominator;
    }
};

void putArchitectural(Text& text, const Mixed& number, bool suppressZeros)
{
    putFeetAndInches(text, Decimal(number.whole), number.numerator != 0, suppressZeros,
                     [&](int inches, bool mayOmitZero) {
                         const bool omitted = mayOmitZero && inches == 0 && number.numerator != 0;
                         if (!omitted)
                             text << inches;
                         number.putFraction(text, !omitted);
                     });
}

void putFractional(Text& text, const Mixed& number)
{
    const bool omitted = number.whole == 0.0 && number.numerator != 0;
    if (!omitted)
        putInteger(text, Decimal(number.whole));
    number.putFraction(text, !omitted);
}

bool write(Text& text, double value, Vek::lFormat format, int precision, bool suppressZeros)
{
    if (!std::isfinite(value))
        return false;
    precision = std::clamp(precision, 0, 8);
    const double magnitude = std::fabs(value);
    const auto sign = [&](bool isZero) {
        if (value < 0.0 && !isZero) // a value that rounds to zero has no sign
            text << '-';
    };
    Decimal number(magnitude);
    switch (format) {
    case Vek::formatScientific:
        sign(number.isZero());
        putScientific(text, number, precision, suppressZeros);
        return true;
    case Vek::formatDecimal:
        number.round(precision);
        sign(number.isZero());
        putInteger(text, number);
        putDecimals(text, number, 0, precision, suppressZeros);
        return true;
    case Vek::formatEngineering:
        number.round(precision);
        sign(number.isZero());
        putEngineering(text, number, precision, suppressZeros);
        return true;
    case Vek::formatArchitectural:
    case Vek::formatFractional: {
        const Mixed mixed(magnitude, precision);
        sign(mixed.isZero());
        if (format == Vek::formatArchitectural)
            putArchitectural(text, mixed, suppressZeros);
        else
            putFractional(text, mixed);
        return true;
    }
    default: return false;
    }
}

} // namespace

bool vekRtoS(wchar_t* buffer, double value, Vek::lFormat format, int precision, bool suppressZeros)
{
    Text text;
    if (!buffer || !write(text, value, format, precision, suppressZeros))
        return false;
    std::wcscpy(buffer, text.finished());
    return true;
}

bool vekRtoS(CVekString& result, double value, Vek::lFormat format, int precision, bool suppressZeros)
{
    Text text;
    if (!write(text, value, format, precision, suppressZeros))
        return false;
    result = text.finished();
    return true;
}

#include <vek/data/pattern.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

#include <charconv>
#include <cmath>

namespace VEK
{
namespace
{

constexpr int kFamilyNumbers = 5;
constexpr char kEndOfText = 26;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

CVekString textOf(std::string_view bytes)
{
    std::wstring text = platform::wideOf(bytes);
    if (text.find(L'\xFFFD') != text.npos)
        text = platform::wideOfCodePage1252(bytes);
    return CVekString(text.c_str());
}

/// Removes the first line and its line end from the text.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    if (end == text.npos)
        text = {};
    else
        text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    return line;
}

class Reader
{
public:
    explicit Reader(CVekArrayTempl<CHatchPattern>& patterns) : m_patterns(patterns) {}

    bool read(std::string_view text)
    {
        text = text.substr(0, text.find(kEndOfText));
        if (text.starts_with("\xEF\xBB\xBF"))
            text.remove_prefix(3);
        for (m_line = 1; !text.empty(); ++m_line) {
            const std::string_view line = trimmed(takeLine(text));
            const bool good = line.starts_with('*') ? header(line.substr(1)) : family(line);
            if (!good)
                return false;
        }
        return finish();
    }

    int line() const { return m_line; }
    const std::string& cause() const { return m_cause; }

private:
    bool fail(std::string cause)
    {
        m_cause = std::move(cause);
        return false;
    }

    /// A name as shown in an error.
    static std::string quoted(std::string_view text)
    {
        constexpr std::size_t shown = 40;
        return '"' + std::string(text.substr(0, shown)) + (text.size() > shown ? "...\"" : "\"");
    }

    bool header(std::string_view text)
    {
        if (!finish())
            return false;
        const std::size_t comma = text.find(',');
        const std::string_view name = trimmed(text.substr(0, std::min(comma, text.find(';'))));
        if (name.empty())
            return fail("a pattern without a name");
        m_pattern.name = textOf(name);
        m_pattern.description = comma == text.npos ? CVekString() : textOf(trimmed(text.substr(comma + 1)));
        m_open = true;
        m_headerLine = m_line;
        return true;
    }

    bool family(std::string_view text)
    {
        text = trimmed(text.substr(0, text.find(';')));
        if (text.empty())
            return true;
        if (!m_open)
            return fail("a family of lines before the first pattern");
        CVekArrayTempl<double> numbers;
        for (bool more = true; more;) {
            const std::size_t comma = text.find(',');
            more = comma != text.npos;
            double number = 0.0;
            if (!numberOf(trimmed(text.substr(0, comma)), number))
                return false;
            numbers.append(number);
            text.remove_prefix(more ? comma + 1 : text.size());
        }
        if (numbers.len() < kFamilyNumbers)
            return fail("a family of lines needs 5 numbers or more");
        m_pattern.lines.append(std::move(numbers));
        return true;
    }

    bool numberOf(std::string_view text, double& number)
    {
        std::string_view digits = text;
        if (digits.starts_with('+') && !digits.starts_with("+-"))
            digits.remove_prefix(1);
        const auto [end, status] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (text.empty())
            return fail("a value is missing");
        if (status != std::errc() || end != digits.data() + digits.size() || !std::isfinite(number))
            return fail(quoted(text) + " is no number");
        return true;
    }

    /// Appends the current pattern to the result.
    bool finish()
    {
        if (!m_open)
            return true;
        if (m_pattern.lines.len() == 0) {
            m_line = m_headerLine;
            return fail("the pattern has no lines");
        }
        m_patterns.append(std::move(m_pattern));
        m_pattern = CHatchPattern();
        m_open = false;
        return true;
    }

    CVekArrayTempl<CHatchPattern>& m_patterns;
    CHatchPattern m_pattern;
    bool m_open = false; ///< a header was read
    int m_line = 0;
    int m_headerLine = 0;
    std::string m_cause;
};

std::wstring nameOf(const wchar_t* name)
{
    return name ? name : L"";
}

bool report(CVekString& error, const std::wstring& name, const std::string& cause)
{
    error = CVekString((name + L": " + platform::wideOf(cause)).c_str());
    return false;
}

} // namespace

bool hatchPatternsRead(CVekArrayTempl<CHatchPattern>& patterns, const char* bytes, std::size_t size,
                       const wchar_t* name, CVekString& error)
{
    CVekArrayTempl<CHatchPattern> read;
    CVekString fault;
    const bool complete = whole(false, [&] {
        Reader reader(read);
        if (!reader.read(std::string_view(bytes, bytes ? size : 0)))
            report(fault, nameOf(name) + L':' + std::to_wstring(reader.line()), reader.cause());
        return true;
    });
    if (!complete || !patterns.reserve(patterns.len() + read.len())) {
        error = CVekString(name) + L": there is not enough memory";
        return false;
    }
    patterns += std::move(read);
    if (fault.isNull())
        return true;
    error = std::move(fault);
    return false;
}

bool hatchPatternsLoad(CVekArrayTempl<CHatchPattern>& patterns, const wchar_t* path, CVekString& error)
{
    std::string bytes;
    if (whole(false, [&] { return platform::readFile(platform::pathOf(nameOf(path)), bytes); }))
        return hatchPatternsRead(patterns, bytes.data(), bytes.size(), path, error);
    error = CVekString(path) + L": the file cannot be read";
    return false;
}

} // namespace VEK

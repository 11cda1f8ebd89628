#include "json/tokens.h"

#include "core/platform/platform.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace VEK::json
{

namespace
{

/// A number of 64 bits in 16 hexadecimal digits.
bool readBits(const char* text, std::size_t length, std::uint64_t& bits)
{
    const char* end = text + length;
    return length == 16 && std::from_chars(text, end, bits, 16).ptr == end;
}

/// Values that JSON numbers lack.
bool readSpecial(const std::string& text, double& value)
{
    std::uint64_t bits = 0;
    if (text == "inf")
        value = std::numeric_limits<double>::infinity();
    else if (text == "-inf")
        value = -std::numeric_limits<double>::infinity();
    else if (text == "nan")
        value = std::numeric_limits<double>::quiet_NaN();
    else if (text.compare(0, 2, "0x") == 0 && readBits(text.data() + 2, text.size() - 2, bits))
        std::memcpy(&value, &bits, sizeof value);
    else
        return false;
    return true;
}

} // namespace

const std::wstring& CWideText::of(std::string_view utf8)
{
    const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::all_of(utf8.begin(), utf8.end(), isPlain))
        m_text.assign(utf8.begin(), utf8.end());
    else
        m_text = platform::wideOf(utf8);
    return m_text;
}

void CTokens::clear()
{
    m_tokens.clear();
    m_textCount = 0;
}

void CTokens::addText(Token::Kind kind, std::string&& value, const char* at)
{
    if (m_textCount == m_texts.size())
        m_texts.emplace_back();
    m_texts[m_textCount] = std::move(value);
    token(kind, at).text_ = m_textCount++;
}

Token& CTokens::token(Token::Kind kind, const char* at)
{
    Token& token = m_tokens.emplace_back();
    token.kind = kind;
    token.at = at;
    return token;
}

const Token& CLeafReader::peek() const
{
    static const Token end{};
    return m_next < m_tokens.tokens().size() ? m_tokens.tokens()[m_next] : end;
}

bool CLeafReader::skip(Token::Kind kind)
{
    const bool good = peek().kind == kind;
    m_next += good;
    return good;
}

bool CLeafReader::expect(Token::Kind kind, const char* cause)
{
    return skip(kind) || fail(cause);
}

/// Says what is wrong with the next token.
bool CLeafReader::fail(const char* cause)
{
    m_fault = {peek().at, cause};
    return false;
}

bool CLeafReader::read(bool& value)
{
    const Token& token = peek();
    if (!expect(Token::boolean, "true or false is missing here"))
        return false;
    value = token.flag_;
    return true;
}

bool CLeafReader::read(int& value)
{
    const Token& token = peek();
    const bool fits = token.kind == Token::whole && token.whole_ >= std::numeric_limits<int>::min() &&
                      token.whole_ <= std::numeric_limits<int>::max();
    if (!fits)
        return fail("an integer from -2147483648 to 2147483647 is missing here");
    value = static_cast<int>(token.whole_);
    ++m_next;
    return true;
}

bool CLeafReader::read(unsigned long& value)
{
    const Token& token = peek();
    std::uint64_t number = 0;
    if (token.kind == Token::natural)
        number = token.natural_;
    else if (token.kind == Token::whole && token.whole_ >= 0)
        number = static_cast<std::uint64_t>(token.whole_);
    else
        return fail("an integer from 0 on is missing here");
    if (number > std::numeric_limits<unsigned long>::max())
        return fail("this system's integers are too short for this one");
    value = static_cast<unsigned long>(number);
    ++m_next;
    return true;
}

bool CLeafReader::read(double& value)
{
    const Token& token = peek();
    switch (token.kind) {
    case Token::whole: value = static_cast<double>(token.whole_); break;
    case Token::natural: value = static_cast<double>(token.natural_); break;
    case Token::real: value = token.real_; break;
    case Token::text:
        if (readSpecial(m_tokens.text(token), value))
            break;
        [[fallthrough]];
    default: return fail("a number is missing here");
    }
    ++m_next;
    return true;
}

bool CLeafReader::read(CVekString& value)
{
    const Token& token = peek();
    if (!expect(Token::text, "a text is missing here"))
        return false;
    value = m_wide.of(m_tokens.text(token)).c_str();
    return true;
}

bool CLeafReader::readNumbers(double* numbers, int count)
{
    bool good = expect(Token::beginList, "a list of numbers is missing here");
    for (int i = 0; good && i < count; ++i)
        good = read(numbers[i]);
    return good;
}

bool CLeafReader::read(CVekPoint3d& value)
{
    double xyz[3];
    if (!readNumbers(xyz, 3) || !expect(Token::endList, "a point has three numbers"))
        return false;
    value.set(xyz[0], xyz[1], xyz[2]);
    return true;
}

bool CLeafReader::read(CVekMatrix3d& value)
{
    CVekMatrix3d::Rows& rows = value;
    bool good = expect(Token::beginList, "a list of four rows is missing here");
    for (int i = 0; good && i < 4; ++i)
        good = readNumbers(rows[i], 4) && expect(Token::endList, "a row has four numbers");
    return good && expect(Token::endList, "a matrix has four rows");
}

bool CLeafReader::read(CVekVertex& value)
{
    double numbers[7];
    if (!readNumbers(numbers, 7))
        return false;
    value.start.set(numbers[0], numbers[1], numbers[2]);
    value.end.set(numbers[3], numbers[4], numbers[5]);
    value.bulge = numbers[6];
    const Token& token = peek();
    if (token.kind == Token::text) {
        const std::string& digits = m_tokens.text(token);
        std::uint64_t tag = 0;
        if (!readBits(digits.data(), digits.size(), tag))
            return fail("a tag has sixteen hexadecimal digits");
        for (int i = 0; i < 8; ++i)
            value.tag[i] = static_cast<unsigned char>(tag >> (56 - 8 * i));
        ++m_next;
    }
    return expect(Token::endList, "a segment has seven numbers and at most a tag");
}

bool CLeafReader::readSegments(CVekVertexArray& value)
{
    return read(static_cast<CVekArrayTempl<CVekVertex>&>(value));
}

bool CLeafReader::read(CVekVertexArray& value)
{
    if (peek().kind != Token::beginObject)
        return readSegments(value);
    return readMembers([&](const std::string& name) {
        CVekPoint3d normal;
        if (name == "segments")
            return readSegments(value);
        if (name != "normal")
            return fail("a polyline has \"segments\" and at most a \"normal\"");
        const bool good = read(normal);
        value.setNormal(normal.asVector());
        return good;
    });
}

bool CLeafReader::read(CVekColor& value)
{
    int index = -1;
    int rgb = -1;
    CVekString colorName;
    CVekString bookName;
    const bool good = readMembers([&](const std::string& name) {
        if (name == "index")
            return (read(index) && index == static_cast<short>(index)) || fail("a colour index is missing here");
        if (name == "rgb")
            return (read(rgb) && rgb >= 0 && rgb <= 0xFFFFFF) || fail("a colour from 0 to 16777215 is missing here");
        if (name == "name")
            return read(colorName);
        return name == "book" ? read(bookName) : fail("a colour has \"index\", \"rgb\", \"name\" and \"book\"");
    });
    value.setColorIndex(static_cast<short>(index));
    if (rgb >= 0 && value.color() != static_cast<unsigned long>(rgb))
        value.setColor(static_cast<unsigned long>(rgb));
    value.setNames(colorName, bookName);
    return good;
}

bool CLeafReader::read(CHatchProp& value)
{
    return readMembers([&](const std::string& name) {
        if (name == "name")
            return read(value.name);
        if (name == "angle")
            return read(value.angle);
        if (name == "scale")
            return read(value.scale);
        return name == "crossed" ? read(value.crossed)
                                 : fail("a hatch has \"name\", \"angle\", \"scale\" and \"crossed\"");
    });
}

bool CLeafReader::readTagged(const std::string& tag, CVekDataItem& item)
{
    using Read = bool (CLeafReader::*)(CVekDataItem&);
    static constexpr struct {
        const char* name;
        Read read;
    } kTags[] = {
        {"ulong", &CLeafReader::put<unsigned long>},      {"double", &CLeafReader::put<double>},
        {"point", &CLeafReader::put<CVekPoint3d>},        {"points", &CLeafReader::put<CVekPoint3dArray>},
        {"matrix", &CLeafReader::put<CVekMatrix3d>},      {"polyline", &CLeafReader::put<CVekVertexArray>},
        {"polylines", &CLeafReader::put<VertexArrays>},   {"regions", &CLeafReader::put<Regions>},
        {"ints", &CLeafReader::put<CVekArrayTempl<int>>}, {"strings", &CLeafReader::put<CVekArrayTempl<CVekString>>},
        {"color", &CLeafReader::put<CVekColor>},          {"hatch", &CLeafReader::put<CHatchProp>},
    };
    bool good = false;
    if (tag == "unit") {
        int unit = 0;
        good = read(unit) && item.put(static_cast<Vek::lUnit>(unit));
    } else {
        const auto* known =
            std::find_if(std::begin(kTags), std::end(kTags), [&](const auto& entry) { return tag == entry.name; });
        if (known == std::end(kTags))
            return fail("no value has this tag; a name that begins with @ has it twice");
        good = (this->*known->read)(item);
    }
    return good && expect(Token::endObject, "a value with a tag has no other member");
}

bool CLeafReader::readList(CVekDataItem& item)
{
    const std::vector<Token>& tokens = m_tokens.tokens();
    switch (tokens.size() > 1 ? tokens[1].kind : Token::none) {
    case Token::text: return put<CVekArrayTempl<CVekString>>(item);
    case Token::endList: return fail("a list without elements needs a tag: @ints, @strings, @points, ...");
    case Token::whole: return put<CVekArrayTempl<int>>(item);
    default: return fail("a list without a tag holds integers or texts");
    }
}

} // namespace VEK::json

#include <vek/data/dir.h>
#include <vek/json.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"
#include "json/tokens.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace VEK
{

namespace json
{

namespace
{

constexpr int kListDepth = 8;           ///< no leaf's value is nested deeper
constexpr std::size_t kCauseSize = 300; ///< bytes of a message, which may quote from the text

/// Steps through the text and records the position, which the parser's events do not give.
class CCursor
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CCursor(const char* at, const char** mark) : m_at(at), m_mark(mark) {}

    reference operator*() const { return *m_at; }
    CCursor& operator++()
    {
        *m_mark = ++m_at;
        return *this;
    }
    CCursor operator++(int)
    {
        CCursor before = *this;
        ++*this;
        return before;
    }
    bool operator==(const CCursor& other) const { return m_at == other.m_at; }
    bool operator!=(const CCursor& other) const { return m_at != other.m_at; }

private:
    const char* m_at;
    const char** m_mark;
};

/// Builds a tree from the parser's events. The tokens of a leaf that is not a plain value are collected first.
class CTreeBuilder
{
public:
    CTreeBuilder(CVekDataItem& tree, const char* begin) : m_begin(begin), m_at(begin), m_item(&tree) {}

    const char** mark() { return &m_at; }
    const Fault& faultGet() const { return m_fault; }

    bool null();
    bool boolean(bool value);
    bool number_integer(std::int64_t value);
    bool number_unsigned(std::uint64_t value);
    bool number_float(double value, const std::string& text);
    bool string(std::string& value);
    bool binary(nlohmann::json::binary_t&) { return fail("binary data"); }
    bool key(std::string& name);
    bool start_object(std::size_t);
    bool end_object();
    bool start_array(std::size_t);
    bool end_array();
    bool parse_error(std::size_t position, const std::string& lastToken, const std::exception& problem);

private:
    bool fail(std::string cause);
    bool open(Token::Kind kind);
    bool close(Token::Kind kind);
    bool enter(std::string& name);
    bool leave();

    template <class T>
    bool put(T&& value)
    {
        const bool good = m_item->put<std::decay_t<T>>(std::forward<T>(value));
        m_item = m_item->getParent();
        return good || fail("there is no memory for this value");
    }

    const char* m_begin;
    const char* m_at;     ///< after the last character that the parser read
    CVekDataItem* m_item; ///< where the next value goes: a directory between two children, else a leaf
    CVekDataKey m_key;
    CWideText m_wide;
    CTokens m_tokens;
    std::string m_tag;        ///< of the leaf being collected
    int m_depth = 0;          ///< open directories
    int m_collected = 0;      ///< open lists and objects of the leaf being collected; 0 if none
    bool m_undecided = false; ///< whether an object was opened that may still be a directory or a leaf
    Fault m_fault;
};

bool CTreeBuilder::fail(std::string cause)
{
    m_fault = {m_at, std::move(cause)};
    return false;
}

bool CTreeBuilder::null()
{
    if (m_collected)
        m_tokens.add(Token::null, m_at);
    else
        m_item = m_item->getParent();
    return true;
}

bool CTreeBuilder::boolean(bool value)
{
    if (!m_collected)
        return put(value);
    m_tokens.addFlag(value, m_at);
    return true;
}

bool CTreeBuilder::number_integer(std::int64_t value)
{
    if (m_collected)
        m_tokens.addWhole(value, m_at);
    else if (value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max())
        return put(static_cast<int>(value));
    else
        return fail("an integer beyond 32 bits needs the tag @ulong, a real number a point");
    return true;
}

bool CTreeBuilder::number_unsigned(std::uint64_t value)
{
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        return number_integer(static_cast<std::int64_t>(value));
    if (!m_collected)
        return fail("an integer beyond 32 bits needs the tag @ulong, a real number a point");
    m_tokens.addNatural(value, m_at);
    return true;
}

bool CTreeBuilder::number_float(double value, const std::string& text)
{
    // C libraries round differently; this function is exact.
    std::from_chars(text.data(), text.data() + text.size(), value);
    if (m_collected)
        m_tokens.addReal(value, m_at);
    else if (text.find_first_of(".eE") != std::string::npos)
        return put(value);
    else
        return fail("an integer beyond 32 bits needs the tag @ulong, a real number a point");
    return true;
}

bool CTreeBuilder::string(std::string& value)
{
    if (value.find('\0') != std::string::npos)
        return fail("a text cannot hold the character 0");
    if (!m_collected)
        return put(CVekString(m_wide.of(value).c_str()));
    m_tokens.addText(Token::text, std::move(value), m_at);
    return true;
}

bool CTreeBuilder::key(std::string& name)
{
    if (name.find('\0') != std::string::npos)
        return fail("a name cannot hold the character 0");
    if (m_collected) {
        m_tokens.addText(Token::key, std::move(name), m_at);
        return true;
    }
    if (std::exchange(m_undecided, false)) {
        if (name.size() > 1 && name[0] == '@' && name[1] != '@') {
            m_tag = name.substr(1);
            m_tokens.clear();
            m_collected = 1;
            return true;
        }
        if (!m_item->mkDir())
            return fail("there is no memory for this directory");
    }
    return enter(name);
}

/// Makes the child with a name the item that receives the next value.
bool CTreeBuilder::enter(std::string& name)
{
    CVekDataKey::keyType type = CVekDataKey::keyText;
    std::size_t start = 0;
    if (name.compare(0, 2, "@@") == 0 || name.compare(0, 2, "##") == 0) {
        start = 1;
    } else if (name.compare(0, 2, "#=") == 0) {
        type = CVekDataKey::keyText2;
        start = 2;
    } else if (name.compare(0, 1, "#") == 0) {
        int number = 0;
        const char* end = name.data() + name.size();
        const auto read = std::from_chars(name.data() + 1, end, number);
        if (read.ec != std::errc() || read.ptr != end)
            return fail("behind # a name has an integer of 32 bits; a name that begins with # has it twice");
        m_key.set(CVekDataKey::keyInt, number, 0);
        type = CVekDataKey::keyInt;
    } else if (name.compare(0, 1, "@") == 0) {
        return fail("a tag stands alone in its object; a name that begins with @ has it twice");
    }
    const wchar_t* text = m_wide.of(std::string_view(name).substr(start)).c_str();
    if (type == CVekDataKey::keyText)
        m_key.set(text);
    else if (type == CVekDataKey::keyText2)
        m_key.set(type, text, 0);
    CVekDataDir* dir = m_item->getDir();
    const int before = dir->len();
    CVekDataItem* child = dir->makeItem(&m_key);
    if (!child)
        return fail("there is no memory for this value");
    if (dir->len() == before)
        return fail("\"" + name + "\" stands here twice");
    m_item = child;
    return true;
}

bool CTreeBuilder::open(Token::Kind kind)
{
    if (m_collected == 0)
        m_tokens.clear();
    else if (m_collected == kListDepth)
        return fail("no value has lists this deep");
    m_tokens.add(kind, m_at);
    ++m_collected;
    return true;
}

bool CTreeBuilder::start_object(std::size_t)
{
    if (m_collected)
        return open(Token::beginObject);
    m_undecided = true;
    return m_depth++ < kJsonDepth ||
           fail("directories lie too deep in each other, more than " + std::to_string(kJsonDepth));
}

bool CTreeBuilder::start_array(std::size_t)
{
    if (!m_collected)
        m_tag.clear();
    return open(Token::beginList);
}

/// Ends a list or object of a leaf, and reads the leaf if that was its outermost one.
bool CTreeBuilder::close(Token::Kind kind)
{
    m_tokens.add(kind, m_at);
    if (--m_collected > 0)
        return true;
    CLeafReader leaf(m_tokens, m_fault);
    const bool good = m_tag.empty() ? leaf.readList(*m_item) : leaf.readTagged(m_tag, *m_item);
    m_item = m_item->getParent();
    return good;
}

bool CTreeBuilder::end_object()
{
    m_depth -= m_collected <= 1;
    if (m_collected)
        return close(Token::endObject);
    if (std::exchange(m_undecided, false) && !m_item->mkDir())
        return fail("there is no memory for this directory");
    m_item = m_item->getParent();
    return true;
}

bool CTreeBuilder::end_array()
{
    return close(Token::endList);
}

bool CTreeBuilder::parse_error(std::size_t position, const std::string&, const std::exception& problem)
{
    // "[json.exception.parse_error.101] parse error at line 1, column 2: cause", or without the position.
    std::string cause = problem.what();
    for (const char* before : {"] ", "column "})
        if (const std::size_t start = cause.find(before); start != std::string::npos)
            cause.erase(0, start + std::strlen(before));
    cause.erase(0, cause.find_first_not_of("0123456789: "));
    m_fault = {m_begin + position, std::move(cause)};
    return false;
}

/// "NAME:LINE: cause". After a number the parser has read one character ahead, which may be the line end.
CVekString messageOf(const wchar_t* name, const char* begin, const Fault& fault)
{
    const char* end = fault.at && fault.at > begin ? fault.at - 1 : begin;
    const auto line = std::count(begin, end, '\n') + 1;
    std::string cause = fault.cause;
    if (cause.size() > kCauseSize)
        cause.replace(kCauseSize, std::string::npos, "...");
    CVekString place;
    place.format(L":%d: ", static_cast<int>(line));
    return CVekString(name) + place + CWideText().of(cause).c_str();
}

bool readTree(CVekDataItem& tree, const char* bytes, std::size_t size, const wchar_t* name, CVekString& error)
{
    CVekDataItem contents;
    CTreeBuilder builder(contents, bytes);
    bool good = false;
    const bool complete = whole(false, [&] {
        const CCursor begin(bytes, builder.mark());
        const CCursor end(bytes + size, builder.mark());
        good = nlohmann::json::sax_parse(begin, end, &builder);
        return true;
    });
    if (complete && good) {
        tree = std::move(contents);
        return true;
    }
    CVekString message;
    if (complete)
        message = whole(CVekString(), [&] { return messageOf(name, bytes, builder.faultGet()); });
    error = message.isNull() ? CVekString(name) + L": there is no memory for this tree" : message;
    return false;
}

} // namespace

} // namespace json

bool jsonRead(CVekDataItem& tree, const char* bytes, std::size_t size, const wchar_t* name, CVekString& error)
{
    return json::readTree(tree, bytes, size, name, error);
}

bool jsonLoad(CVekDataItem& tree, const wchar_t* path, CVekString& error)
{
    std::string bytes;
    if (path && whole(false, [&] { return platform::readFile(platform::pathOf(path), bytes); }))
        return jsonRead(tree, bytes.data(), bytes.size(), path, error);
    error = CVekString(path) + L": cannot be read";
    return false;
}

} // namespace VEK

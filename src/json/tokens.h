/// @file
/// The tokens of one leaf of a JSON text, and reading leaf values from them.
#pragma once

#include <vek/data/item.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VEK::json
{

/// What went wrong, and where in the text.
struct Fault {
    const char* at = nullptr;
    std::string cause; ///< UTF-8
};

/// Converts UTF-8 to wide text in a buffer that is reused.
class CWideText
{
public:
    /// The wide text, valid until the next call.
    const std::wstring& of(std::string_view utf8);

private:
    std::wstring m_text;
};

struct Token {
    enum Kind : unsigned char {
        null,
        boolean,
        whole,   ///< a signed 64-bit integer
        natural, ///< an unsigned 64-bit integer above those
        real,    ///< a number with a point or an exponent, or an integer beyond 64 bits
        text,
        key,
        beginList,
        endList,
        beginObject,
        endObject,
        none ///< after the last token
    };

    Kind kind = none;
    union {
        bool flag_;
        std::int64_t whole_ = 0;
        std::uint64_t natural_;
        double real_;
        std::size_t text_; ///< index of the text
    };
    const char* at = nullptr; ///< the position after the token
};

/// The tokens of one leaf. The memory is reused for the next one.
class CTokens
{
public:
    void clear();
    void add(Token::Kind kind, const char* at) { token(kind, at); }
    void addFlag(bool value, const char* at) { token(Token::boolean, at).flag_ = value; }
    void addWhole(std::int64_t value, const char* at) { token(Token::whole, at).whole_ = value; }
    void addNatural(std::uint64_t value, const char* at) { token(Token::natural, at).natural_ = value; }
    void addReal(double value, const char* at) { token(Token::real, at).real_ = value; }
    void addText(Token::Kind kind, std::string&& value, const char* at);

    const std::vector<Token>& tokens() const { return m_tokens; }
    const std::string& text(const Token& token) const { return m_texts[token.text_]; }

private:
    Token& token(Token::Kind kind, const char* at);

    std::vector<Token> m_tokens;
    std::vector<std::string> m_texts;
    std::size_t m_textCount = 0;
};

/// Reads the value of a leaf.
class CLeafReader
{
public:
    CLeafReader(const CTokens& tokens, Fault& fault) : m_tokens(tokens), m_fault(fault) {}

    /// Reads the value of a tag; the tokens begin after its name and end with the object's end.
    bool readTagged(const std::string& tag, CVekDataItem& item);

    /// Reads a list without a tag.
    bool readList(CVekDataItem& item);

private:
    const Token& peek() const;
    bool skip(Token::Kind kind);
    bool expect(Token::Kind kind, const char* cause);
    bool fail(const char* cause);

    bool read(bool& value);
    bool read(int& value);
    bool read(unsigned long& value);
    bool read(double& value);
    bool read(CVekString& value);
    bool read(CVekPoint3d& value);
    bool read(CVekMatrix3d& value);
    bool read(CVekVertex& value);
    bool read(CVekVertexArray& value);
    bool read(CVekColor& value);
    bool read(CHatchProp& value);
    bool readNumbers(double* numbers, int count);
    bool readSegments(CVekVertexArray& value);

    template <class T>
    bool read(CVekArrayTempl<T>& values)
    {
        bool good = expect(Token::beginList, "a list is missing here");
        while (good && !skip(Token::endList)) {
            T value{};
            good = read(value);
            if (good)
                values.append(std::move(value));
        }
        return good;
    }

    /// Reads the members of an object; `member` gets each name and reads its value.
    template <class Member>
    bool readMembers(Member&& member)
    {
        bool good = expect(Token::beginObject, "an object is missing here");
        while (good && !skip(Token::endObject)) {
            const std::string& name = m_tokens.text(peek());
            ++m_next; // a key: nothing else can come in an object
            good = member(name);
        }
        return good;
    }

    template <class T>
    bool put(CVekDataItem& item)
    {
        T value{};
        return read(value) && (item.put<T>(std::move(value)) || fail("there is no memory for this value"));
    }

    const CTokens& m_tokens;
    Fault& m_fault;
    CWideText m_wide;
    std::size_t m_next = 0;
};

} // namespace VEK::json

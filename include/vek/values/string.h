/// @file
/// Wide strings.
#pragma once

#include <vek/values/array.h>

#include <cwchar>

/// A wide string value. The text ends at its first terminator. The object is one pointer, and an empty string holds no
/// memory. When memory runs out a string stays as it was. `wchar_t` is a UTF-16 unit on Windows and a code point
/// elsewhere; lengths and indices count `wchar_t`.
class VEK_API CVekString : public CVekObj
{
public:
    using MovesAsBytes = CVekString; ///< see `kVekMovesAsBytes`

    CVekString() = default;
    CVekString(const CVekString& other) : CVekString(other.text(), other.length()) {}
    CVekString(CVekString&& other) noexcept : CVekObj(), m_text(std::exchange(other.m_text, nullptr)) {}

    /// A null pointer gives the empty string.
    CVekString(const wchar_t* text);

    /// The first `length` characters of `text`, or fewer if a terminator comes first.
    CVekString(const wchar_t* text, unsigned length);

    ~CVekString() override
    {
        if (m_text)
            release();
    }

    CVekString& operator=(const CVekString& other);
    CVekString& operator=(CVekString&& other) noexcept
    {
        std::swap(m_text, other.m_text);
        return *this;
    }
    CVekString& operator=(const wchar_t* text);

    CVekString& operator+=(const CVekString& other) { return append(other.text(), other.length()); }
    CVekString& operator+=(const wchar_t* text);
    CVekString& operator+=(wchar_t character) { return append(&character, character ? 1 : 0); }

    /// The text; never null, valid until the string changes.
    operator const wchar_t*() const { return text(); }

    /// The character at an index; 0 if out of range.
    wchar_t operator[](int index) const { return static_cast<unsigned>(index) < length() ? m_text[index] : L'\0'; }

    /// Length in characters.
    int len() const { return static_cast<int>(length()); }

    /// Whether the text is empty.
    bool isNull() const { return length() == 0; }

    /// Replaces one character; an index out of range changes nothing, and a terminator cuts the text there.
    void setAt(int index, wchar_t character);

    /// A buffer for `count` characters and a terminator, owned by the string and valid until it changes. It contains
    /// the present text; once written to, it is the string's text up to the first terminator.
    /// @return null when memory runs out
    wchar_t* GetBuffer(unsigned count);

    /// Index of the first match from `start` on, or -1. An empty text is found at `start`, a null one nowhere.
    int find(const wchar_t* what, int start = 0) const;
    int find(wchar_t what, int start = 0) const;

    /// Replaces all matches, from left to right, none inside a replacement. An empty or null `what` changes nothing; a
    /// null `with` removes the matches.
    /// @return the number of matches
    int replace(const wchar_t* what, const wchar_t* with);
    int replace(wchar_t what, wchar_t with);

    /// The characters from `start` on, at most `count`; empty if `start` is past the end.
    CVekString mid(unsigned start, unsigned count = ~0u) const;

    /// The last `count` characters, all when there are fewer.
    CVekString right(unsigned count) const;

    /// Change case in place, character by character; "ß" stays.
    void makeUpper();
    void makeLower();

    /// `printf`-style; the result replaces the string. `%%s` and `%%c` take wide text and characters in every build,
    /// `%%hs` takes narrow text. The arguments may point into this very string. If the format is invalid the string
    /// becomes empty.
    CVekString& format(const wchar_t* form, ...);

    /// Replaces the escape sequences `\U+XXXX` and `\uXXXX`, of four hexadecimal digits each, by their characters. A
    /// surrogate pair becomes one character where `wchar_t` can hold it; anything else is left alone.
    void unEscapeWideChar();

    /// Case-sensitive and case-insensitive comparison: below 0, 0 or above 0. A null text is taken as empty.
    int compare(const wchar_t* other) const { return std::wcscmp(text(), other ? other : L""); }
    int compareNoCase(const wchar_t* other) const;

    bool operator==(const CVekString& other) const { return compare(other.text()) == 0; }
    bool operator==(const wchar_t* other) const { return compare(other) == 0; }
    bool operator!=(const CVekString& other) const { return compare(other.text()) != 0; }
    bool operator!=(const wchar_t* other) const { return compare(other) != 0; }
    bool operator<(const CVekString& other) const { return compare(other.text()) < 0; }
    bool operator<(const wchar_t* other) const { return compare(other) < 0; }
    bool operator>(const CVekString& other) const { return compare(other.text()) > 0; }
    bool operator>(const wchar_t* other) const { return compare(other) > 0; }

private:
    const wchar_t* text() const { return m_text ? m_text : L""; }
    unsigned length() const { return m_text ? measured() : 0; }
    unsigned measured() const;
    void release() noexcept;
    bool room(unsigned count);
    CVekString& assign(const wchar_t* text, unsigned length);
    CVekString& append(const wchar_t* text, unsigned length);

    wchar_t* m_text = nullptr; ///< preceded by a header with length and capacity; null for a text never written
};

VEK_API CVekString operator+(const CVekString& a, const CVekString& b);
VEK_API CVekString operator+(const CVekString& a, const wchar_t* b);
VEK_API CVekString operator+(const CVekString& a, wchar_t b);
VEK_API CVekString operator+(const wchar_t* a, const CVekString& b);

namespace VEK
{

/// Splits a text at any of the delimiter characters into `parts`, which is emptied first.
/// @param keepEmpty whether empty parts between, before and after delimiters are kept
/// @return whether there is any part; there is none when memory runs out
VEK_API bool strTok(CVekArrayTempl<CVekString>& parts, const wchar_t* text, const wchar_t* delimiters, bool keepEmpty);

/// Joins the parts with the separator between them; a null separator is taken as empty. Here and below the result is
/// empty when memory runs out.
VEK_API CVekString implode(const CVekArrayTempl<CVekString>& parts, const wchar_t* separator);

/// UTF-8 of a wide text, and the wide text of UTF-8. Invalid input becomes U+FFFD.
VEK_API CVekArrayTempl<char> toUtf8(const wchar_t* text);
VEK_API CVekString fromUtf8(const char* text, unsigned length);

} // namespace VEK

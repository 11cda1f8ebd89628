#include <vek/values/string.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

#include <cstdarg>
#include <cstring>
#include <string>

namespace
{

/// The header before the characters of a string.
struct Header {
    unsigned length;
    unsigned capacity; ///< characters that fit, without the terminator
};
constexpr unsigned kUnmeasured = ~0u; ///< a caller may have written into the buffer
constexpr unsigned kMaxLength = 0x3FFFFFFF;

Header* headerOf(wchar_t* text)
{
    return reinterpret_cast<Header*>(text) - 1;
}

wchar_t* newText(unsigned capacity)
{
    if (capacity > kMaxLength) {
        VEK::memoryShort();
        return nullptr;
    }
    void* block = CVekObj::operator new[](sizeof(Header) + (std::size_t{capacity} + 1) * sizeof(wchar_t));
    if (!block)
        return nullptr;
    Header* header = ::new (block) Header{0, capacity};
    wchar_t* text = reinterpret_cast<wchar_t*>(header + 1);
    text[0] = L'\0';
    text[capacity] = L'\0';
    return text;
}

unsigned lengthOf(const wchar_t* text)
{
    return text ? static_cast<unsigned>(std::wcslen(text)) : 0;
}

int hexValue(wchar_t digit)
{
    if (digit >= L'0' && digit <= L'9')
        return digit - L'0';
    if (digit >= L'A' && digit <= L'F')
        return digit - L'A' + 10;
    if (digit >= L'a' && digit <= L'f')
        return digit - L'a' + 10;
    return -1;
}

/// The value of an escape sequence at `text`, or -1.
int escapeAt(const wchar_t* text)
{
    if (text[0] != L'\\')
        return -1;
    const wchar_t* digits = text[1] == L'u' ? text + 2 : text[1] == L'U' && text[2] == L'+' ? text + 3 : nullptr;
    if (!digits)
        return -1;
    int value = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = hexValue(digits[i]);
        if (digit < 0)
            return -1;
        value = value * 16 + digit;
    }
    return value;
}

bool isHighSurrogate(int unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(int unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The format with its `%s` and `%c` marked as wide, since C libraries differ in what these mean in wide formats.
std::wstring wideFormat(const wchar_t* form)
{
    std::wstring wide;
    while (*form) {
        const wchar_t c = *form++;
        wide += c;
        if (c != L'%')
            continue;
        if (*form == L'%') {
            wide += *form++;
            continue;
        }
        while (*form && std::wcschr(L"-+ #0123456789.*", *form))
            wide += *form++;
        const bool narrow = *form == L'h' && (form[1] == L's' || form[1] == L'c');
        if (narrow) {
            // glibc takes a plain %s as narrow and does not know %hs; the Windows library needs the h.
            if (sizeof(wchar_t) == 2)
                wide += L'h';
            wide += form[1];
            form += 2;
        } else if (*form == L's' || *form == L'c') {
            wide += L'l';
        }
    }
    return wide;
}

} // namespace

CVekString::CVekString(const wchar_t* text) : CVekString(text, lengthOf(text)) {}

CVekString::CVekString(const wchar_t* text, unsigned length)
{
    const wchar_t* terminator = length ? std::wmemchr(text, L'\0', length) : nullptr;
    assign(text, terminator ? static_cast<unsigned>(terminator - text) : length);
}

CVekString& CVekString::operator=(const CVekString& other)
{
    return this == &other ? *this : assign(other.text(), other.length());
}

CVekString& CVekString::operator=(const wchar_t* text)
{
    return assign(text, lengthOf(text));
}

CVekString& CVekString::operator+=(const wchar_t* text)
{
    return append(text, lengthOf(text));
}

unsigned CVekString::measured() const
{
    Header* header = headerOf(m_text);
    if (header->length == kUnmeasured)
        header->length = lengthOf(m_text);
    return header->length;
}

void CVekString::release() noexcept
{
    CVekObj::operator delete[](headerOf(m_text));
}

bool CVekString::room(unsigned count)
{
    const unsigned capacity = m_text ? headerOf(m_text)->capacity : 0;
    if (m_text && count <= capacity)
        return true;
    // Growth by half keeps building a text piece by piece linear.
    wchar_t* grown = newText(m_text ? std::max(count, std::min(kMaxLength, capacity + capacity / 2)) : count);
    if (!grown)
        return false;
    const unsigned kept = length();
    std::wmemcpy(grown, text(), kept + 1);
    headerOf(grown)->length = kept;
    if (m_text)
        release();
    m_text = grown;
    return true;
}

CVekString& CVekString::assign(const wchar_t* source, unsigned count)
{
    if (count == 0) {
        if (m_text) {
            m_text[0] = L'\0';
            headerOf(m_text)->length = 0;
        }
        return *this;
    }
    const bool own = m_text && source >= m_text && source <= m_text + headerOf(m_text)->capacity;
    if (!own && !room(count))
        return *this;
    std::wmemmove(m_text, source, count);
    m_text[count] = L'\0';
    headerOf(m_text)->length = count;
    return *this;
}

CVekString& CVekString::append(const wchar_t* source, unsigned count)
{
    const unsigned old = length();
    if (count == 0)
        return *this;
    if (count > kMaxLength - old) {
        VEK::memoryShort();
        return *this;
    }
    const bool own = m_text && source >= m_text && source <= m_text + old;
    const std::size_t offset = own ? static_cast<std::size_t>(source - m_text) : 0;
    if (!room(old + count))
        return *this;
    std::wmemmove(m_text + old, own ? m_text + offset : source, count);
    m_text[old + count] = L'\0';
    headerOf(m_text)->length = old + count;
    return *this;
}

void CVekString::setAt(int index, wchar_t character)
{
    if (static_cast<unsigned>(index) >= length())
        return;
    m_text[index] = character;
    if (character == L'\0')
        headerOf(m_text)->length = static_cast<unsigned>(index);
}

wchar_t* CVekString::GetBuffer(unsigned count)
{
    if (!room(count))
        return nullptr;
    m_text[headerOf(m_text)->capacity] = L'\0';
    headerOf(m_text)->length = kUnmeasured;
    return m_text;
}

int CVekString::find(const wchar_t* what, int start) const
{
    if (!what || start < 0 || start > len())
        return -1;
    if (!*what)
        return start; // C libraries differ in whether an empty text is found at the end
    const wchar_t* hit = std::wcsstr(text() + start, what);
    return hit ? static_cast<int>(hit - text()) : -1;
}

int CVekString::find(wchar_t what, int start) const
{
    if (what == L'\0' || start < 0 || start > len())
        return -1;
    const wchar_t* hit = std::wcschr(text() + start, what);
    return hit ? static_cast<int>(hit - text()) : -1;
}

int CVekString::replace(const wchar_t* what, const wchar_t* with)
{
    const unsigned count = lengthOf(what);
    if (count == 0 || find(what) < 0)
        return 0;
    int hits = 0;
    CVekString replaced = VEK::whole(CVekString(), [&] {
        CVekString result;
        int from = 0;
        for (int at = find(what); at >= 0; at = find(what, from), ++hits) {
            result.append(m_text + from, static_cast<unsigned>(at - from));
            result += with;
            from = at + static_cast<int>(count);
        }
        result.append(m_text + from, length() - static_cast<unsigned>(from));
        result.room(1); // the result of a replacement has a block, even if empty
        return result;
    });
    if (!replaced.m_text)
        return 0;
    std::swap(m_text, replaced.m_text);
    return hits;
}

int CVekString::replace(wchar_t what, wchar_t with)
{
    int hits = 0;
    for (int at = find(what); at >= 0 && what != with; at = find(what, at)) {
        setAt(at, with);
        ++hits;
    }
    return hits;
}

CVekString CVekString::mid(unsigned start, unsigned count) const
{
    const unsigned all = length();
    return start < all ? CVekString(m_text + start, std::min(count, all - start)) : CVekString();
}

CVekString CVekString::right(unsigned count) const
{
    const unsigned all = length();
    return mid(all - std::min(count, all));
}

void CVekString::makeUpper()
{
    for (unsigned i = 0; i < length(); ++i)
        m_text[i] = VEK::platform::upperOf(m_text[i]);
}

void CVekString::makeLower()
{
    for (unsigned i = 0; i < length(); ++i)
        m_text[i] = VEK::platform::lowerOf(m_text[i]);
}

int CVekString::compareNoCase(const wchar_t* other) const
{
    const wchar_t* a = text();
    const wchar_t* b = other ? other : L"";
    for (;; ++a, ++b) {
        const wchar_t lowerA = VEK::platform::lowerOf(*a);
        const wchar_t lowerB = VEK::platform::lowerOf(*b);
        if (lowerA != lowerB)
            return lowerA < lowerB ? -1 : 1;
        if (lowerA == L'\0')
            return 0;
    }
}

CVekString& CVekString::format(const wchar_t* form, ...)
{
    // The C functions do not return the size that a wide text needs, so the buffer doubles up to a limit that no text
    // of this system comes near.
    constexpr unsigned kFirst = 256;
    constexpr unsigned kLast = 1u << 24;
    CVekString result;
    try {
        const std::wstring wide = wideFormat(form ? form : L"");
        for (unsigned size = kFirst; size <= kLast; size *= 4) {
            wchar_t* buffer = result.GetBuffer(size);
            if (!buffer)
                return *this;
            std::va_list arguments;
            va_start(arguments, form);
            const int written = std::vswprintf(buffer, size, wide.c_str(), arguments);
            va_end(arguments);
            if (written >= 0 && static_cast<unsigned>(written) < size)
                return assign(buffer, lengthOf(buffer));
        }
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
        return *this;
    }
    return *this = CVekString();
}

void CVekString::unEscapeWideChar()
{
    if (find(L'\\') < 0)
        return;
    // The characters are never longer than their escape sequences, so they are replaced in place from the left.
    wchar_t* to = m_text;
    for (const wchar_t* c = m_text; *c;) {
        const int unit = escapeAt(c);
        if (unit <= 0) {
            *to++ = *c++;
            continue;
        }
        c += c[1] == L'u' ? 6 : 7;
        const int low = isHighSurrogate(unit) ? escapeAt(c) : -1;
        const bool pair = isLowSurrogate(low);
        if (pair)
            c += c[1] == L'u' ? 6 : 7;
        if (pair && sizeof(wchar_t) > 2) {
            *to++ = static_cast<wchar_t>(0x10000 + (unit - 0xD800) * 0x400 + (low - 0xDC00));
        } else {
            *to++ = static_cast<wchar_t>(unit);
            if (pair)
                *to++ = static_cast<wchar_t>(low);
        }
    }
    *to = L'\0';
    headerOf(m_text)->length = static_cast<unsigned>(to - m_text);
}

CVekString operator+(const CVekString& a, const CVekString& b)
{
    return CVekString(a) += b;
}

CVekString operator+(const CVekString& a, const wchar_t* b)
{
    return CVekString(a) += b;
}

CVekString operator+(const CVekString& a, wchar_t b)
{
    return CVekString(a) += b;
}

CVekString operator+(const wchar_t* a, const CVekString& b)
{
    return CVekString(a) += b;
}

namespace VEK
{

bool strTok(CVekArrayTempl<CVekString>& parts, const wchar_t* text, const wchar_t* delimiters, bool keepEmpty)
{
    parts = whole(CVekArrayTempl<CVekString>(), [&] {
        CVekArrayTempl<CVekString> found;
        const wchar_t* from = text ? text : L"";
        while (text) {
            const std::size_t count = std::wcscspn(from, delimiters ? delimiters : L"");
            if (count || keepEmpty)
                found.append(CVekString(from, static_cast<unsigned>(count)));
            from += count;
            if (!*from)
                break;
            ++from;
        }
        return found;
    });
    return parts.len() > 0;
}

CVekString implode(const CVekArrayTempl<CVekString>& parts, const wchar_t* separator)
{
    return whole(CVekString(), [&] {
        CVekString joined;
        for (int i = 0; i < parts.len(); ++i) {
            if (i > 0)
                joined += separator;
            joined += parts[i];
        }
        return joined;
    });
}

CVekArrayTempl<char> toUtf8(const wchar_t* text)
{
    return whole(CVekArrayTempl<char>(), [&] {
        const std::string utf8 = platform::utf8Of(text ? text : L"");
        CVekArrayTempl<char> bytes;
        if (bytes.setLogicalLength(static_cast<int>(utf8.size())) > 0)
            std::memcpy(bytes.begin(), utf8.data(), utf8.size());
        return bytes;
    });
}

CVekString fromUtf8(const char* text, unsigned length)
{
    return whole(CVekString(), [&] {
        const std::wstring wide = platform::wideOf(std::string_view(text, text ? length : 0));
        return CVekString(wide.data(), static_cast<unsigned>(wide.size()));
    });
}

} // namespace VEK

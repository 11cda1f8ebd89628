/// @file
/// Paths into the data tree.
#pragma once

#include <vek/values/string.h>

#include <memory>

/// A path of the data tree: a chain of elements, each a text or an integer. Texts are case-sensitive; the empty text is
/// an element like any other. A key without an element addresses the item itself.
///
/// The texts of a key are not split: a backslash in one belongs to the name. Only paths given as one text descend at
/// backslashes.
class VEK_API CVekDataKey : public CVekObj
{
public:
    /// Kind of an element. The numbers are the published result types of the host package.
    enum keyType : short {
        keyLost = -1,    ///< an element lost when memory ran out: a path with it finds and creates nothing
        keyNone = 0,     ///< no element
        keyInt = 5003,   ///< an integer
        keyText = 5005,  ///< a text
        keyText2 = 5020, ///< a text in its second form; it finds the same child as `keyText`
    };

    CVekDataKey() = default;

    /// A key of one text element; null gives a key without an element.
    CVekDataKey(const wchar_t* text) { set(text); }

    /// A path from pairs of type and value, ended by a 0 in place of a type: `CVekDataKey(5005, L"BT", 5003, 7, 0)`.
    /// The path also ends before a pair that is incomplete, whose type is not a `keyType`, or whose value does not
    /// match its type.
    template <class... Rest>
    CVekDataKey(short type, const Rest&... rest)
    {
        set(type, rest...);
    }

    /// Copies all elements.
    CVekDataKey(const CVekDataKey& other);
    CVekDataKey(CVekDataKey&& other) noexcept;

    /// Copies the first element only and drops the rest of both: callers rely on it to cut a path short.
    CVekDataKey& operator=(const CVekDataKey& other);

    /// Replaces the key by one text element; null leaves none.
    CVekDataKey& set(const wchar_t* text);

    /// Replaces the key by a path as with the constructor.
    template <class... Rest>
    CVekDataKey& set(short type, const Rest&... rest)
    {
        const Part parts[] = {Part(type), Part(rest)...};
        return build(parts, sizeof...(rest) + 1);
    }

    /// Appends all elements of another path.
    CVekDataKey& append(const CVekDataKey& tail);

    /// Kind of the first element.
    keyType type() const { return m_type; }
    bool isText() const { return m_type == keyText || m_type == keyText2; }

    /// The first element's text, never null; empty for any other kind. Valid until the key changes.
    operator const wchar_t*() const { return m_text; }

    /// The first element's integer; 0 for any other kind.
    operator int() const { return m_number; }

    /// The path after the first element, owned by the key; null at the end.
    const CVekDataKey* next() const { return m_next.get(); }

    /// Whether the key has no element.
    bool isEmpty() const { return m_type == keyNone; }

    /// Compares type and value of all elements. The two forms of a text are different here.
    bool operator==(const CVekDataKey& other) const;

private:
    friend class CVekDataDir;

    struct Part {
        Part(const wchar_t* value) : text(value), isNumber(false) {}
        Part(const CVekString& value) : text(value), isNumber(false) {}
        Part(int value) : number(value) {}
        Part(long value) : number(static_cast<int>(value)) {} // a NULL that ends the path

        const wchar_t* text = nullptr;
        int number = 0;
        bool isNumber = true;
    };

    CVekDataKey& build(const Part* parts, std::size_t count);
    void setText(const wchar_t* text);
    CVekDataKey* grow();

    keyType m_type = keyNone;
    int m_number = 0;
    CVekString m_text;
    std::unique_ptr<CVekDataKey> m_next;
};

/// @file
/// The texts of a catalogue file, by key and language.
#pragma once

#include <vek/values/string.h>

#include <map>
#include <string>
#include <vector>

class TextCatalogue
{
public:
    using Texts = std::map<std::wstring, std::wstring>; ///< by language

    /// Reads a catalogue in place of what is there. Languages are read in lower case; of a key with several prefixes
    /// the first counts.
    /// @return false, with everything as it was, if it cannot be read or has no texts; `error` then receives the cause
    bool load(const wchar_t* path, CVekString& error);

    /// All keys in order.
    const std::vector<std::wstring>& keys() const { return m_keys; }

    /// The text of a key; empty if there is none in that language.
    std::wstring text(const std::wstring& key, std::wstring language) const;

    /// "M" for a key with a text of several lines in any language, otherwise empty.
    std::wstring attributes(const std::wstring& key) const;

    /// The keys that contain a text, or whose text in a language does, ignoring case.
    std::vector<std::wstring> find(const std::wstring& part, const std::wstring& language) const;

private:
    std::map<std::wstring, Texts> m_texts;
    std::vector<std::wstring> m_keys;
};

/// A text in one line, with the sign ¶ for each line break.
std::wstring inOneLine(const std::wstring& text);

/// A text for programs whose texts have 8 bits: characters beyond the system's code page as `\U+XXXX`.
std::wstring escaped(const std::wstring& text);

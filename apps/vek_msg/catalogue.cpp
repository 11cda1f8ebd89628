#include "catalogue.h"

#include "core/platform/platform.h"

#include <vek/data/dir.h>
#include <vek/data/iterator.h>
#include <vek/json.h>

#include <algorithm>
#include <cwchar>

namespace
{

// How translators write line breaks, besides the sign.
constexpr const wchar_t* kBreaks[] = {L"\r\n", L"\n", L"\\n"};

std::wstring lower(std::wstring text)
{
    for (wchar_t& letter : text)
        letter = VEK::platform::lowerOf(letter);
    return text;
}

std::wstring name(const CVekDataItem* item)
{
    return static_cast<const wchar_t*>(*item->getKey());
}

} // namespace

bool TextCatalogue::load(const wchar_t* path, CVekString& error)
{
    CVekDataItem file;
    if (!VEK::jsonLoad(file, path, error))
        return false;
    std::map<std::wstring, Texts> texts;
    for (VEK::CDataIterator prefix(file.getItem(L"*MSG*")); !prefix.done(); prefix.next()) {
        std::map<std::wstring, Texts> own;
        for (VEK::CDataIterator language(prefix.item()); !language.done(); language.next()) {
            for (VEK::CDataIterator it(language.item()); !it.done(); it.next()) {
                CVekString text;
                if (it->get(text))
                    own[name(it)][lower(name(language))] = static_cast<const wchar_t*>(text);
            }
        }
        texts.merge(own);
    }
    if (texts.empty()) {
        error = CVekString(path) + L": no texts";
        return false;
    }
    std::vector<std::wstring> keys;
    for (const auto& [key, all] : texts)
        keys.push_back(key);
    m_texts = std::move(texts);
    m_keys = std::move(keys);
    return true;
}

std::wstring TextCatalogue::text(const std::wstring& key, std::wstring language) const
{
    const auto all = m_texts.find(key);
    if (all == m_texts.end())
        return {};
    const auto one = all->second.find(lower(std::move(language)));
    return one == all->second.end() ? std::wstring() : one->second;
}

std::wstring TextCatalogue::attributes(const std::wstring& key) const
{
    const auto all = m_texts.find(key);
    const bool isLong =
        all != m_texts.end() && std::any_of(all->second.begin(), all->second.end(), [](const auto& text) {
            return inOneLine(text.second).find(L'¶') != std::wstring::npos;
        });
    return isLong ? L"M" : L"";
}

std::vector<std::wstring> TextCatalogue::find(const std::wstring& part, const std::wstring& language) const
{
    std::vector<std::wstring> found;
    const std::wstring wanted = lower(part);
    std::copy_if(m_keys.begin(), m_keys.end(), std::back_inserter(found), [&](const std::wstring& key) {
        return (lower(key) + L'\n' + lower(text(key, language))).find(wanted) != std::wstring::npos;
    });
    return found;
}

std::wstring inOneLine(const std::wstring& text)
{
    std::wstring line = text;
    for (const wchar_t* each : kBreaks) {
        for (std::size_t at = line.find(each); at != line.npos; at = line.find(each, at + 1))
            line.replace(at, std::wcslen(each), L"¶");
    }
    return line;
}

std::wstring escaped(const std::wstring& text)
{
    CVekString result;
    for (const wchar_t character : text) {
        const std::wstring_view one(&character, 1);
        CVekString code;
        if (VEK::platform::wideOfSystemCodePage(VEK::platform::systemCodePageOf(one)) == one)
            result += character;
        else
            result += code.format(L"\\U+%04X", static_cast<unsigned>(character));
    }
    return static_cast<const wchar_t*>(result);
}

#include <vek/data/label.h>
#include <vek/data/text.h>

#include "core/values/whole.h"

#include <cwchar>
#include <optional>

namespace VEK
{

namespace
{

struct Section {
    CVekString language;
    CVekString text;
};

using Sections = CVekArrayTempl<Section>;

bool isMulti(const wchar_t* label)
{
    return label[0] == L'\\';
}

/// The languages and texts of a label in the multi-language form, up to the first error.
Sections sectionsOf(const wchar_t* label)
{
    Sections sections;
    while (*label == L'\\') {
        const std::size_t length = std::wcscspn(++label, L"\\:");
        if (label[length] != L':')
            break;
        Section section;
        section.language = CVekString(label, static_cast<unsigned>(length));
        label += length + 1;
        while (*label && (*label != L'\\' || label[1] == L'\\')) {
            const std::size_t run = *label == L'\\' ? 1 : std::wcscspn(label, L"\\");
            section.text += CVekString(label, static_cast<unsigned>(run));
            label += *label == L'\\' ? 2 : run;
        }
        sections.append(std::move(section));
    }
    return sections;
}

CVekString labelOf(const Sections& sections)
{
    CVekString label;
    for (const Section& section : sections) {
        CVekString text = section.text;
        text.replace(L"\\", L"\\\\");
        label += L"\\" + section.language + L":" + text;
    }
    return label;
}

int indexOf(const Sections& sections, const wchar_t* language)
{
    int index = sections.len();
    while (index-- > 0)
        if (sections[index].language.compareNoCase(language) == 0)
            break;
    return index;
}

const wchar_t* chosen(const wchar_t* language)
{
    return language && *language ? language : msgLangSet(nullptr);
}

} // namespace

const wchar_t* label_set(CVekString& label, const wchar_t* text, const wchar_t* language)
{
    using Made = std::optional<CVekString>;
    Made made = whole(Made(), [&]() -> Made {
        const CVekString id(chosen(language));
        if (std::wcspbrk(id, L"\\:"))
            return {};
        Sections sections;
        if (isMulti(label))
            sections = sectionsOf(label);
        else if (!label.isNull())
            sections.append({msgLangSet(nullptr), label});
        const int index = indexOf(sections, id);
        if (!text || !*text) {
            if (index >= 0)
                sections.removeAt(index);
        } else if (index >= 0) {
            sections[index].text = text;
        } else {
            sections.append({id, text});
        }
        return labelOf(sections);
    });
    if (made)
        label = std::move(*made);
    return label;
}

bool label_get(CVekString& out, const wchar_t* label, const wchar_t* language, bool anyLanguage)
{
    CVekString found;
    const bool good = whole(false, [&] {
        if (!label || !*label)
            return false;
        if (!isMulti(label)) {
            found = label;
            return true;
        }
        const Sections sections = sectionsOf(label);
        int index = indexOf(sections, chosen(language));
        if (index < 0 && anyLanguage)
            index = indexOf(sections, msgLangSet(nullptr));
        if (index < 0 && anyLanguage && sections.len() > 0)
            index = 0;
        if (index >= 0)
            found = sections[index].text;
        return index >= 0;
    });
    if (good)
        out = std::move(found);
    return good;
}

} // namespace VEK

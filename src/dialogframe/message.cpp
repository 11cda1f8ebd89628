#include <vek/data/text.h>
#include <vek/dialogframe/message.h>

#include "core/values/whole.h"

namespace VEK
{

namespace
{

/// The last results. A caller may so hold two or three texts at a time without owning any.
struct Ring {
    static constexpr int kSlots = 8;
    CVekString texts[kSlots];
    int present = 0;
};

} // namespace

TextKey textKey(const wchar_t* key)
{
    const wchar_t* first = key ? std::wcschr(key, L'\\') : nullptr;
    const wchar_t* second = first ? std::wcschr(first + 1, L'\\') : nullptr;
    if (!second || std::wcschr(second + 1, L'\\'))
        return {{}, key, {}};
    return {CVekString(key, static_cast<unsigned>(first - key)),
            CVekString(first + 1, static_cast<unsigned>(second - first - 1)), second + 1};
}

const wchar_t* msgCallBack(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language)
{
    static Ring ring;
    ring.present = (ring.present + 1) % Ring::kSlots;
    if (language && std::wcscmp(language, L"0") == 0)
        return key;
    CVekString& slot = ring.texts[ring.present];
    const bool good = whole(false, [&] {
        const TextKey parts = textKey(key);
        const CVekString text = parts.before + vek_msg_get(L"VEK_", parts.key, builtIn, language) + parts.behind;
        slot = text; // a copy, so that the slot keeps its memory
        return true;
    });
    return good ? static_cast<const wchar_t*>(slot) : builtIn ? builtIn : L"";
}

} // namespace VEK

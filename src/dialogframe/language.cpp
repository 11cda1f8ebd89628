#include <vek/data/text.h>
#include <vek/dialogframe/language.h>

namespace VEK
{

CVekString dlgLanguage(const wchar_t* own, DlgParents& parents)
{
    if (own && *own)
        return own;
    while (parents.up()) {
        if (const wchar_t* language = parents.language())
            return language;
    }
    return msgLangSet(nullptr);
}

} // namespace VEK

#include <vek/dialogs/material.h>

#include "core/values/whole.h"

#include <string>
#include <unordered_set>

namespace VEK
{

namespace
{

/// Follows a material's references to its physical data.
/// @return false if they lead to no own data of any material; else `material` is that one
bool followPhys(const CMatMgr& library, CMatProp& material)
{
    std::unordered_set<std::wstring> seen;
    while (material.physKind == matReference) {
        const auto [key, isNew] = seen.insert(static_cast<const wchar_t*>(material.physRef));
        if (!isNew || !library.propGet(key->c_str(), material))
            return false;
    }
    return material.physKind == matOwn;
}

} // namespace

unsigned matDialogFlags(const CVekArrayTempl<CVekString>& options, bool drawingMats, bool showKeys)
{
    const auto has = [&](const wchar_t* word) {
        int index = 0;
        return options.indexOf(word, index);
    };
    const bool needsEdges = has(L"EDGE");
    const struct {
        bool isSet;
        unsigned flag;
    } rows[] = {{drawingMats, matTreeDrawing},   {showKeys, matTreeKeys},
                {needsEdges, matTreeEdges},      {!needsEdges && has(L"PHYS"), matTreePhys},
                {has(L"SYSTEM"), matTreeSystem}, {has(L"SPACE"), matTreeNoSpace}};
    unsigned flags = 0;
    for (const auto& [isSet, flag] : rows)
        flags |= isSet ? flag : 0;
    return flags;
}

bool matCanBeChosen(const CMatMgr& library, const wchar_t* key, unsigned flags,
                    const CVekArrayTempl<CVekString>& physKeys)
{
    return whole(false, [&] {
        const unsigned asked = flags & (matTreeEdges | matTreePhys);
        if (asked == 0 || CVekString(key) == L"SYSTEM")
            return true;
        CMatProp material;
        library.propGet(key, material);
        if ((asked & matTreeEdges) != 0 && material.edgeKind != matReference)
            return material.edgeKind == matOwn && material.edges.len() > 0;
        return (asked & matTreePhys) == 0 || (followPhys(library, material) && matHasPhys(material, physKeys));
    });
}

} // namespace VEK

/// @file
/// The groups of standard outlines.
#pragma once

#include <vek/values/array.h>

namespace VEK
{

/// A group of outlines and its name.
struct OutlineGroupText {
    int bit;                ///< in the "CODE" of the outlines that belong to it, and in filters
    const wchar_t* key;     ///< text key of the name
    const wchar_t* builtIn; ///< German name
};

/// The groups, in the order in which they are listed.
VEK_API extern const OutlineGroupText outlineGroups[4];

/// The filter that shows some of the groups.
/// @param selected whether a group is shown, in the order of `outlineGroups`; what comes after these is ignored
/// @return their bits; 0 shows no outline
VEK_API int outlineFilter(const CVekArrayTempl<bool>& selected);

} // namespace VEK

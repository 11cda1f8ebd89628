/// @file
/// Selection by stack path.
#pragma once

#include <vek/display/item.h>

#include <algorithm>

namespace VEK
{

/// Whether the item's path begins with the given one; an empty path begins none.
inline bool inGroup(const CVekDisplayItem& item, const CVekArrayTempl<int>& stack)
{
    return stack.len() > 0 && item.stack.len() >= stack.len() &&
           std::equal(stack.begin(), stack.end(), item.stack.begin());
}

} // namespace VEK

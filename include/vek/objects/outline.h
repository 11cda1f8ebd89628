/// @file
/// Outlines in the data tree, and the library of standard outlines.
#pragma once

#include <vek/data/item.h>
#include <vek/geometry/outline.h>

namespace VEK
{

VEK_API bool g_outline(CVekVertexArray& outline, const CVekDataItem* item, Vek::lUnit unit);
inline bool g_outline(CVekVertexArray& outline, const CVekDataItem* item, int unit)
{
    return g_outline(outline, item, static_cast<Vek::lUnit>(unit));
}
VEK_API bool outlineInit(CVekDataItem* library);

} // namespace VEK

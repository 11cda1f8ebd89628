/// @file
/// Sections of folded and corrugated sheets.
#pragma once

#include <vek/data/file.h>

namespace VEK
{

VEK_API CVekDataItem* fsheet_get(const CVekArrayTempl<CVekString>& stack);
VEK_API bool fsheet_sid(CDtaFilePointer* file, CVekString& id);
VEK_API bool fsheet_vll_fnc(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top,
                            CVekVertexArray& bottom);
VEK_API bool fsheet_vll_fillet(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top,
                               CVekVertexArray& bottom);
VEK_API bool fsheet_vll_region(const CVekDataItem* item, VertexArrays& lines);
VEK_API bool fsheet_vll_outline(const CVekDataItem* item, const CVekVertexArray& top, const CVekVertexArray& bottom,
                                const CVekArrayTempl<VertexArrays>& regions, VertexArrays& lines);
VEK_API bool fsheet_axis_vl(const VertexArrays& lines, double thickness, CVekVertexArray& axis);

} // namespace VEK

/// @file
/// Slides as items of a display object.
#pragma once

#include <vek/display/gdx.h>
#include <vek/pictures/slide.h>

/// Adds the items of a slide to a display object, in slide coordinates, y upwards: a polyline of one segment for each
/// line and a region for each fill.
///
/// The item specifies "STACK", a list of integers or one integer, the stack path of the items, and "MTX", the matrix
/// that places the slide. A 1 is appended to each path, and element 0 counts up from item to item. So without "STACK"
/// the paths are (1), (2), ...; with "STACK" (5, 7) they are (5, 7, 1), (6, 7, 1), ... The appended 1 never changes:
/// owners find their items by it.
///
/// A fill has `itemFill`, whatever the flags say, and after the first one no line of the slide has it. Items before the
/// first colour record have a default colour, without an index.
///
/// The name "LEER", ignoring case, means an empty slide: no file is opened, and one hidden point at the origin with an
/// empty path is added.
/// @param name name of the slide in the library
/// @param library path of the library; names are in code page 1252
/// @param flags `VekItemFlag` of the items
/// @param item may be null
/// @return whether element 0 of the path ended above 1: that anything was added, or that "STACK" began above 1. False
/// for a null display object, name or library, for a slide that is not found or has an unknown level, and when memory
/// runs out; then nothing of the slide is added
VEK_API bool vek_gdx_image_sld(CVekGDX* gdx, const wchar_t* name, const wchar_t* library, unsigned long flags,
                               CVekDataItem* item);

namespace VEK
{

/// The same for a slide in memory; "LEER" does not apply here.
/// @return as above; false for a null display object, for a slide without data or of an unknown level, and when memory
/// runs out, with nothing added
VEK_API bool gdxImageSlide(CVekGDX* gdx, SlideBytes slide, unsigned long flags, const CVekDataItem* item);

} // namespace VEK

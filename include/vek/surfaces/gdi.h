/// @file
/// Windows device contexts.
#pragma once

#include <vek/surfaces/surface.h>

#include <memory>

#ifdef _WIN32

struct HDC__;

namespace VEK
{

/// A surface that draws on a device context of a window, a bitmap or a metafile, whose device units are its pixels
/// (`MM_TEXT`). Connected lines of one pen are kept and drawn together; everything stands on the context when the
/// surface is destroyed, which also gives the context back its pen, brush, clip, background colour and fill mode. It
/// holds at most 64 pens and brushes. All that it draws lies within the clip that the context came with.
///
/// Lines and polygons are cut at plus and minus 2^27, which is as far as GDI draws; boxes are moved to that border.
/// @param dc stays the caller's and must outlive the surface; null draws nothing
/// @return null when memory runs out
VEK_API std::unique_ptr<CSurface> gdiSurface(HDC__* dc);

} // namespace VEK

#endif

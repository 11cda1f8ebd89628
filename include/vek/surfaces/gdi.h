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
/// (`MM_TEXT`). Connected lines of one pen are buffered and drawn together; the drawing is complete when the surface is
/// destroyed, which also restores the context's pen, brush, clip, background colour and fill mode. It holds at most 64
/// pens and brushes. Everything it draws is limited to the context's initial clip.
///
/// Lines and polygons are clipped at plus and minus 2^27, the limit of GDI; boxes are moved to that border.
/// @param dc owned by the caller, must outlive the surface; null draws nothing
/// @return null when memory runs out
VEK_API std::unique_ptr<CSurface> gdiSurface(HDC__* dc);

} // namespace VEK

#endif

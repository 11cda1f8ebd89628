/// @file
/// Scalable vector graphics, version 1.1.
#pragma once

#include <vek/surfaces/file.h>

namespace VEK
{

/// A surface that writes an SVG file of a size in pixels, one user unit each. The same calls always produce the same
/// bytes.
///
/// Coordinates keep three decimals; lines and polygons are clipped at plus and minus 2^27. Consecutive lines of one pen
/// share a path element, since readers limit the number of elements. A filled polygon with holes taken out of the clip
/// inside it is one path with holes; any other `clipOut` becomes a mask. A pixel is a line of length 1. Arcs are arc
/// commands in the path of the adjacent lines; an arc whose ellipse has no width becomes a line, and one beyond the
/// limit chords. A picture is embedded as uncompressed PNG.
/// @param width, height at least 1
/// @return null when memory runs out
VEK_API std::unique_ptr<CFileSurface> svgSurface(CByteSink& sink, int width, int height);

} // namespace VEK

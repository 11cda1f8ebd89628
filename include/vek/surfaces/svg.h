/// @file
/// Scalable vector graphics, version 1.1.
#pragma once

#include <vek/surfaces/file.h>

namespace VEK
{

/// A surface that writes an SVG file of a size in pixels, one user unit each. The same calls always give the same
/// bytes.
///
/// Coordinates keep three decimals; lines and polygons are cut at plus and minus 2^27. Consecutive lines of one pen
/// share a path element, since readers limit the number of elements. A filled polygon with holes taken out of the
/// clip inside of it is one path with holes; any other `clipOut` becomes a mask. A pixel is a line of length 1.
/// Arcs are arc commands of the path that their neighbours stand in; one whose ellipse has no width is a line, and one
/// beyond reach chords. A picture is embedded as PNG, without packing.
/// @param width, height at least 1
/// @return null where memory ends
VEK_API std::unique_ptr<CFileSurface> svgSurface(CByteSink& sink, int width, int height);

} // namespace VEK

/// @file
/// Enhanced metafiles, written without any window system.
#pragma once

#include <vek/surfaces/file.h>

namespace VEK
{

/// A surface that writes an enhanced metafile as published in [MS-EMF], for a reference device of 96 pixels per inch,
/// so that one device unit is 0.2646 mm. The header's bounds and frame enclose what is drawn inside the clip rectangle.
/// The same calls always produce the same bytes.
///
/// It is a surface of whole pixels, or of a grid of `fineness` units per pixel: on a fine grid the lines of an enlarged
/// picture stay even, and pictures scale with it. Lines and polygons are clipped at plus and minus 2^27 units, the
/// limit of GDI; boxes are moved to that border. Lines drawn together make one record, with 16-bit coordinates where
/// they fit. A filled polygon with holes taken out of the clip inside it is written as one figure with holes, which all
/// readers draw alike; any other `clipOut` becomes a clip path, which some readers ignore or invert. A picture is one
/// copy of 24 bits per pixel; if it has transparent pixels, a clip region precedes it, and readers that ignore regions
/// show the colours of those pixels; on a fine grid it is one copy for each part without gaps. A file beyond the
/// format's 4 GB fails.
/// @param fineness 1 to 64; other values are clamped
/// @return null when memory runs out
VEK_API std::unique_ptr<CFileSurface> emfSurface(CByteSink& sink, int fineness = 1);

} // namespace VEK

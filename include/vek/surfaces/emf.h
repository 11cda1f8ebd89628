/// @file
/// Enhanced metafiles, written without any window system.
#pragma once

#include <vek/surfaces/file.h>

namespace VEK
{

/// A surface that writes an enhanced metafile as published in [MS-EMF], for a reference device of 96 pixels an inch,
/// so that one device unit is 0.2646 mm. The header's bounds and frame enclose what is drawn inside the clip
/// rectangle. The same calls always give the same bytes.
///
/// It is a surface of whole pixels, or of a grid of so many units to a pixel as `fineness` says: on a fine grid the
/// lines of an enlarged picture stay even, and pictures grow with it. Lines and polygons are cut at plus and minus 2^27
/// units, which is as far as GDI draws; boxes are moved to that border. Lines that are drawn together make one record,
/// with 16-bit coordinates where they fit. A filled polygon with holes taken out of the clip inside of it is written as
/// one figure with holes, which all readers draw alike; any other `clipOut` becomes a clip path, which some ignore or
/// turn round. A picture is one copy of 24 bits a pixel; where pixels of it are left out, a clip region stands before
/// it, and readers that ignore regions show the colours that those pixels have; on a fine grid it is one copy for each
/// part without gaps. A file beyond the format's 4 GB fails.
/// @param fineness 1 to 64; a number beyond that counts as the nearest
/// @return null where memory ends
VEK_API std::unique_ptr<CFileSurface> emfSurface(CByteSink& sink, int fineness = 1);

} // namespace VEK

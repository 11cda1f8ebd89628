// Portable network graphics, ISO/IEC 15948. Files of any kind are read, also interlaced ones.
#pragma once

#include <vek/values/pixels.h>

#include <string>
#include <string_view>

namespace VEK::png
{

struct Header {
    int width = 0;
    int height = 0;
    int bits = 0;                ///< a pixel
    std::size_t packedBytes = 0; ///< of pixels in the file
};

/// Looks at a file without unpacking anything.
/// @return false when it is no such file, ends early, or has a size that is none for a picture
bool readHeader(std::string_view bytes, Header& header);

/// Decodes an image with its opacity, 0 to 255 above each colour. Of 16 bits a channel the upper 8 count. Checksums are
/// not looked at. A file that unpacks to far more than its size allows takes no memory for it.
/// @param header of the same bytes
/// @return false, with `pixels` as they were, when the data are damaged
bool readPixels(std::string_view bytes, const Header& header, CPixels& pixels);

enum class Channels {
    color = 3, ///< without the opacity
    colorAndOpacity = 4,
};

/// A whole file of 8 bits a channel, its rows unfiltered, which packs lines on one colour best.
/// @return empty for an empty picture, one whose data are not width times height pixels or more than 950 million bytes,
/// and where memory does not suffice
std::string encode(const CPixels& pixels, Channels channels);

} // namespace VEK::png

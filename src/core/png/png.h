// Portable network graphics, ISO/IEC 15948. All kinds of files are read, including interlaced ones.
#pragma once

#include <vek/values/pixels.h>

#include <string>
#include <string_view>

namespace VEK::png
{

struct Header {
    int width = 0;
    int height = 0;
    int bits = 0;                ///< per pixel
    std::size_t packedBytes = 0; ///< of pixel data in the file
};

/// Reads a file's header without unpacking anything.
/// @return false if it is not such a file, ends early, or has no valid picture size
bool readHeader(std::string_view bytes, Header& header);

/// Decodes an image with opacity, 0 to 255 in the byte above each colour. Of 16 bits per channel the upper 8 are used.
/// Checksums are ignored. A file that unpacks to far more than its picture size does not get the memory for that.
/// @param header of the same bytes
/// @return false, with `pixels` unchanged, if the data is damaged
bool readPixels(std::string_view bytes, const Header& header, CPixels& pixels);

enum class Channels {
    color = 3, ///< without opacity
    colorAndOpacity = 4,
};

/// A whole file with 8 bits per channel and unfiltered rows, which compress best for lines on a plain background.
/// @return empty for an empty picture, one whose data are not width times height pixels or more than 950 million bytes,
/// and when memory runs out
std::string encode(const CPixels& pixels, Channels channels);

} // namespace VEK::png

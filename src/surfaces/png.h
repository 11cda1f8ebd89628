// Portable network graphics, ISO/IEC 15948: as much as icons hold and as SVG files take up.
#pragma once

#include <vek/values/pixels.h>

#include <string>
#include <string_view>

namespace VEK::png
{

struct Header {
    int width = 0;
    int height = 0;
    int depth = 0; ///< bits a channel
    int type = 0;
    int channels = 0;
};

/// @return false when it is no such file, or one of absurd size or with interlacing
bool readHeader(std::string_view bytes, Header& header);

/// Decodes an image with its opacity, 0 to 255 above each colour. Checksums are not looked at.
/// @return false when the data are damaged
bool readPixels(std::string_view bytes, const Header& header, CPixels& pixels);

/// A whole file of 8 bits a channel with opacity. The data are not packed, which any reader takes.
/// @param pixels not empty
std::string encode(const CPixels& pixels);

} // namespace VEK::png

// Pictures in the format of device bitmaps: 32 bits per pixel, rows from the top, blue in the lowest byte.
#pragma once

#include <vek/values/pixels.h>

#include <windows.h>

namespace VEK
{

inline BITMAPINFO deviceBitmapInfo(const CPixels& pixels)
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, pixels.width, -pixels.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    return info;
}

inline std::uint32_t deviceColor(std::uint32_t pixel)
{
    return (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
}

} // namespace VEK

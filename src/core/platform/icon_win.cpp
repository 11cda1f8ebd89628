#include "core/platform/platform.h"

#include <windows.h>

namespace VEK::platform
{
namespace
{

/// Reads a device bitmap as 32 bits per pixel.
bool readBits(HDC dc, HBITMAP bitmap, std::vector<std::uint32_t>& pixels, int& width, int& height)
{
    BITMAP size{};
    if (GetObjectW(bitmap, sizeof size, &size) == 0)
        return false;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    pixels.resize(static_cast<std::size_t>(size.bmWidth) * static_cast<std::size_t>(size.bmHeight));
    if (GetDIBits(dc, bitmap, 0, static_cast<UINT>(size.bmHeight), pixels.data(), &info, DIB_RGB_COLORS) == 0)
        return false;
    for (std::uint32_t& pixel : pixels) // the system puts blue in the lowest byte
        pixel = (pixel & 0xFF00) | (pixel >> 16 & 0xFF) | (pixel & 0xFF) << 16;
    width = size.bmWidth;
    height = size.bmHeight;
    return true;
}

bool readIcon(HICON handle, IconBits& icon)
{
    ICONINFO info{};
    if (!handle || !GetIconInfo(handle, &info))
        return false;
    const HDC screen = GetDC(nullptr);
    icon = {};
    bool good = readBits(screen, info.hbmMask, icon.mask, icon.width, icon.height);
    if (good && info.hbmColor)
        good = readBits(screen, info.hbmColor, icon.color, icon.width, icon.height) &&
               icon.color.size() == icon.mask.size();
    else
        icon.height /= 2;
    ReleaseDC(nullptr, screen);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return good;
}

} // namespace

bool systemIcon(int id, IconBits& icon)
{
    return readIcon(LoadIconW(nullptr, MAKEINTRESOURCEW(id)), icon); // shared, never destroyed
}

bool moduleIcon(const std::filesystem::path& module, int id, int cx, int cy, IconBits& icon)
{
    const HMODULE loaded = GetModuleHandleW(module.c_str());
    if (!loaded)
        return false;
    const auto handle = static_cast<HICON>(LoadImageW(loaded, MAKEINTRESOURCEW(id), IMAGE_ICON, cx, cy, 0));
    const bool good = readIcon(handle, icon);
    if (handle)
        DestroyIcon(handle);
    return good;
}

} // namespace VEK::platform

#include "bitmaps/load.h"

#include "core/platform/platform.h"
#include "core/values/whole.h"

#include <vek/data/text.h>
#include <vek/values/system.h>

namespace VEK
{
namespace
{

/// Scales a picture to the requested size, without a copy if it has that size.
CPixels fitted(CPixels pixels, int cx, int cy)
{
    const int width = cx == 0 ? pixels.width : cx;
    const int height = cy == 0 ? pixels.height : cy;
    return width == pixels.width && height == pixels.height ? std::move(pixels) : scaledPicture(pixels, width, height);
}

LoadResult loadFile(const CVekString& name, int cx, int cy, bool& transparent, unsigned long back, CPixels& pixels)
{
    CVekString path;
    std::string bytes;
    const std::wstring_view text = static_cast<const wchar_t*>(name);
    if (text.size() <= 4 || !fileFind(path, name))
        return LoadResult::none;
    const std::wstring_view ending = text.substr(text.size() - 4);
    const bool isIcon = platform::equalNoCase(ending, L".ico");
    if (!isIcon && !platform::equalNoCase(ending, L".bmp"))
        return LoadResult::none;
    if (!platform::readFile(platform::pathOf(static_cast<const wchar_t*>(path)), bytes))
        return LoadResult::unread;
    IconImage icon;
    if (isIcon ? !decodeIcon(bytes, cx, cy, icon) : !decodeBmp(bytes, pixels))
        return LoadResult::none;
    if (isIcon) {
        transparent = false;
        pixels = flattenIcon(icon, back);
    }
    pixels = fitted(std::move(pixels), cx, cy);
    return pixels.empty() ? LoadResult::none : LoadResult::done;
}

/// An icon of the system or of the library's module, which is loaded in its final size.
LoadResult loadProgramIcon(int id, int cx, int cy, bool& transparent, unsigned long back, CPixels& pixels)
{
    CVekString module;
    appFileName(module, L"Vek", L"Mfc", L"Dll");
    platform::IconBits bits;
    if (!platform::systemIcon(id, bits) &&
        !platform::moduleIcon(platform::pathOf(static_cast<const wchar_t*>(module)), id, cx, cy, bits))
        return LoadResult::none;
    transparent = false;
    const int colorHeight = bits.color.empty() ? 0 : bits.height;
    const int maskHeight = bits.color.empty() ? bits.height * 2 : bits.height;
    pixels = flattenIcon(
        {{bits.width, colorHeight, std::move(bits.color)}, {bits.width, maskHeight, std::move(bits.mask)}}, back);
    return pixels.empty() ? LoadResult::none : LoadResult::done;
}

} // namespace

LoadResult tryLoadPicture(const CVekString& name, int id, int cx, int cy, bool& transparent, unsigned long back,
                          CPixels& pixels)
{
    pixels = {};
    const LoadResult result = whole(LoadResult::unread, [&] {
        if (cx < 0 || cy < 0)
            return LoadResult::none;
        return name.isNull() ? loadProgramIcon(id, cx, cy, transparent, back, pixels)
                             : loadFile(name, cx, cy, transparent, back, pixels);
    });
    if (result != LoadResult::done)
        pixels = {};
    return result;
}

CPixels loadPicture(const CVekString& name, int id, int cx, int cy, bool& transparent, unsigned long back)
{
    CPixels pixels;
    tryLoadPicture(name, id, cx, cy, transparent, back, pixels);
    return pixels;
}

} // namespace VEK

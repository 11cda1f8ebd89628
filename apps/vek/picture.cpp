#include "picture.h"

#include "core/png/png.h"
#include "shared/failure.h"
#include "shared/input.h"

#include <vek/surfaces.h>

#include <algorithm>
#include <charconv>

namespace
{

constexpr unsigned kWhite = 0xFFFFFF;

/// Parts per pixel in a metafile, so that it can be enlarged.
constexpr int kFineness = 16;

void draw(CVekGDX& gdx, VEK::CSurface& surface, Size size, const PictureLook& look)
{
    VEK::gdxDraw(gdx, surface, {0.0, 0.0, size.width, size.height, look.scale},
                 look.onScreen ? VEK::scalableScreenRules : VEK::scalableRules);
    checkMemory();
}

constexpr int kSizeLimit = 32767;

} // namespace

Size sizeOf(const std::string& text, Size fallback)
{
    if (text.empty())
        return fallback;
    Size size;
    const char* end = text.data() + text.size();
    const auto [cross, widthError] = std::from_chars(text.data(), end, size.width);
    if (widthError == std::errc() && cross != end && (*cross == 'x' || *cross == 'X')) {
        const auto [last, heightError] = std::from_chars(cross + 1, end, size.height);
        if (heightError == std::errc() && last == end && std::min(size.width, size.height) >= 1 &&
            std::max(size.width, size.height) <= kSizeLimit)
            return size;
    }
    throw Failure("--size " + text + ": not of the form 800x600, from 1x1 to 32767x32767");
}

void checkPictureName(const std::string& path)
{
    const std::string kind = ending(path);
    if (kind != ".svg" && kind != ".emf" && kind != ".png")
        throw Failure(path + ": neither an SVG file (.svg) nor an enhanced metafile (.emf) nor a PNG file (.png)");
}

void writePicture(CVekGDX& gdx, const std::string& path, Size size, const PictureLook& look)
{
    const std::string kind = ending(path);
    VEK::CFileSink sink(wide(path));
    bool isWritten = false;
    if (kind == ".png") {
        VEK::CPixels pixels;
        if (static_cast<long long>(size.width) * size.height > VEK::kRasterAreaLimit)
            throw Failure(path + ": too large; a PNG file may have 268435456 pixels");
        if (!VEK::rasterPixels(pixels, size.width, size.height, kWhite))
            throw Failure(path + ": memory does not suffice for the pixels");
        const auto surface = VEK::rasterSurface(pixels);
        checkMemory();
        draw(gdx, *surface, size, look);
        const std::string file = VEK::png::encode(pixels, VEK::png::Channels::color);
        isWritten = !file.empty() && sink.write(file) && sink.commit();
    } else {
        const auto surface =
            kind == ".emf" ? VEK::emfSurface(sink, kFineness) : VEK::svgSurface(sink, size.width, size.height);
        checkMemory();
        if (kind == ".svg" &&
            !look.onScreen) // a metafile is on its document's paper; an SVG viewer may have a dark background
            surface->solidRect(0.0, 0.0, size.width, size.height, kWhite);
        draw(gdx, *surface, size, look);
        isWritten = surface->finish();
    }
    if (!isWritten)
        throw Failure(path + ": cannot be written");
}

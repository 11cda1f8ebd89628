// Writes the pictures of the examples into a folder: north.ico, a north arrow in three sizes, and sign.bmp, the sign of
// an elevation. They are drawn with the library and have at most 16 colours.
#include <vek/display.h>
#include <vek/surfaces.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{

constexpr unsigned kWhite = 0xFFFFFF, kInk = 0x402000, kRed = 0x2020C0, kPale = 0xF0E0D0;

std::string little(std::size_t value, int size)
{
    std::string bytes;
    for (; size > 0; --size, value >>= 8)
        bytes += static_cast<char>(value);
    return bytes;
}

/// Rows from the bottom, each padded to 32 bits.
template <class ValueOf>
std::string packed(const VEK::CPixels& pixels, int bits, ValueOf valueOf)
{
    std::string bytes;
    for (int y = pixels.height - 1; y >= 0; --y) {
        std::string row(static_cast<std::size_t>((pixels.width * bits + 31) / 32 * 4), '\0');
        for (int x = 0; x < pixels.width; ++x) {
            const int shift = 8 - bits - x * bits % 8;
            char& byte = row[static_cast<std::size_t>(x * bits / 8)];
            byte = static_cast<char>(byte | static_cast<int>(valueOf(pixels.at(x, y) & 0xFFFFFF)) << shift);
        }
        bytes += row;
    }
    return bytes;
}

/// A bitmap of 4 bits per pixel without file header; as an icon image it has a mask where the picture is white.
std::string bitmapOf(const VEK::CPixels& pixels, bool isIcon)
{
    std::vector<unsigned> colors;
    for (const unsigned pixel : pixels.data) {
        if (std::find(colors.begin(), colors.end(), pixel & 0xFFFFFF) == colors.end())
            colors.push_back(pixel & 0xFFFFFF);
    }
    const auto height = static_cast<std::size_t>(pixels.height);
    std::string bytes = little(40, 4) + little(static_cast<std::size_t>(pixels.width), 4) +
                        little(isIcon ? 2 * height : height, 4) + little(1, 2) + little(4, 2) + little(0, 16) +
                        little(colors.size(), 4) + little(0, 4);
    for (const unsigned color : colors) { // blue comes first; the masked colour of an icon is black
        const unsigned shown = isIcon && color == kWhite ? 0 : color;
        bytes += little(shown >> 16, 1) + little(shown >> 8, 1) + little(shown, 1) + little(0, 1);
    }
    bytes += packed(pixels, 4,
                    [&](unsigned color) { return std::find(colors.begin(), colors.end(), color) - colors.begin(); });
    return isIcon ? bytes + packed(pixels, 1, [](unsigned color) { return color == kWhite ? 1 : 0; }) : bytes;
}

std::string bitmapFile(const VEK::CPixels& pixels)
{
    const std::string bitmap = bitmapOf(pixels, false);
    const std::size_t colors = static_cast<unsigned char>(bitmap[32]);
    return "BM" + little(14 + bitmap.size(), 4) + little(0, 4) + little(14 + 40 + 4 * colors, 4) + bitmap;
}

std::string iconFile(const std::vector<VEK::CPixels>& images)
{
    std::string entries, data;
    for (const VEK::CPixels& image : images) {
        const std::string bitmap = bitmapOf(image, true);
        entries += little(static_cast<std::size_t>(image.width), 1) +
                   little(static_cast<std::size_t>(image.height), 1) + little(16, 1) + little(0, 1) + little(1, 2) +
                   little(4, 2) + little(bitmap.size(), 4) + little(6 + 16 * images.size() + data.size(), 4);
        data += bitmap;
    }
    return little(0, 2) + little(1, 2) + little(images.size(), 2) + entries + data;
}

/// Text with its lower left corner at (x, y), measured from the top.
void write(VEK::CSurface& surface, int height, const wchar_t* text, double x, double y, double size)
{
    CVekColor white, ink;
    white.setColor(0xFFFFFF);
    ink.setOleColor(kInk);
    CVekGDX gdx(white, CVekMatrix3d::kIdentity, 0.0, 0, CVekPoint3d::kOrigin, CVekPoint3d::kOrigin);
    CVekMatrix3d place;
    place.setCoordSystem({x, y, 0}, {size, 0, 0}, {0, -size, 0}, {0, 0, size});
    gdx.imageTxt({}, 0, text, ink, place, L"", {}, {});
    gdx.extMaxViewSet({0, 0, 0}, {0, 0, 1}); // nothing to fit: one unit is one pixel, downwards
    VEK::gdxDraw(gdx, surface, height, 4096, VEK::paperRules);
}

VEK::CPixels northArrow(int size)
{
    VEK::CPixels pixels;
    VEK::rasterPixels(pixels, size, size, kWhite);
    const auto surface = VEK::rasterSurface(pixels);
    const double middle = size / 2.0, wide = size * 0.22;
    surface->pen(size >= 32 ? 2 : 1, kInk);
    surface->brush(kPale);
    surface->ellipse(1, 1, size - 1, size - 1);
    surface->pen(1, kInk);
    const VEK::SurfacePoint left[] = {{middle, 1}, {middle, size * 0.66}, {middle - wide, size * 0.85}};
    const VEK::SurfacePoint right[] = {{middle, 1}, {middle, size * 0.66}, {middle + wide, size * 0.85}};
    surface->brush(kRed);
    surface->polygon(left, 3);
    surface->brush(0xFEFEFE); // not the white that is masked
    surface->polygon(right, 3);
    return pixels;
}

VEK::CPixels sign()
{
    constexpr int kWidth = 208, kHeight = 56;
    VEK::CPixels pixels;
    VEK::rasterPixels(pixels, kWidth, kHeight, kWhite);
    const auto surface = VEK::rasterSurface(pixels);
    surface->pen(2, kInk);
    surface->brush(kPale);
    surface->ellipse(4, 4, 52, 52);
    surface->moveTo(4, 28);
    surface->lineTo(204, 28);
    surface->pen(1, kInk);
    write(*surface, kHeight, L"A", 22, 23, 13);
    write(*surface, kHeight, L"5", 24, 46, 13);
    write(*surface, kHeight, L"ELEVATION", 60, 22, 13);
    write(*surface, kHeight, L"1:50", 60, 46, 11);
    return pixels;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_pictures FOLDER\n");
        return 2;
    }
    const std::pair<const char*, std::string> files[] = {
        {"north.ico", iconFile({northArrow(16), northArrow(32), northArrow(48)})}, {"sign.bmp", bitmapFile(sign())}};
    for (const auto& [name, bytes] : files) {
        std::ofstream out(std::filesystem::path(argv[1]) / name, std::ios::binary);
        if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
            std::fprintf(stderr, "make_pictures: %s/%s cannot be written\n", argv[1], name);
            return 2;
        }
    }
    return 0;
}

#include "commands.h"
#include "failure.h"
#include "input.h"

#include <vek/data.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

constexpr Size kDrawSize{1024, 768};
constexpr Size kTextSize{1024, 256};
constexpr int kSizeLimit = 32767;

constexpr double kCell = 1000.0; // side of a slide on a sheet, in its units
constexpr double kGap = 120.0;
constexpr double kNameHeight = 60.0;
constexpr double kNameDrop = 110.0; // from the slide down to the baseline of its name

Size sizeOf(const std::string& text, Size otherwise)
{
    if (text.empty())
        return otherwise;
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

/// Puts a slide into a square of the sheet, as large as it can be.
void addCell(CVekGDX& gdx, const InputSlide& slide, double left, double bottom)
{
    CVekGDX alone = paper();
    VEK::gdxImageSlide(&alone, slide.bytes, 0, nullptr);
    CVekPoint3d min, max;
    if (!alone.extmaxGet(min, max))
        return;
    const double extent = std::max({max[0] - min[0], max[1] - min[1], 1.0});
    const double scale = kCell / extent;
    const CVekPoint3d origin(left + (kCell - scale * (min[0] + max[0])) / 2.0,
                             bottom + (kCell - scale * (min[1] + max[1])) / 2.0, 0.0);
    CVekMatrix3d place;
    place.setCoordSystem(origin, CVekVector3d(scale, 0.0, 0.0), CVekVector3d(0.0, scale, 0.0),
                         CVekVector3d(0.0, 0.0, scale));
    CVekDataItem item(CVekDataItem::directory);
    const CVekDataKey key(L"MTX");
    VEK::dataItemSet(&item, &key, place);
    VEK::gdxImageSlide(&gdx, slide.bytes, 0, &item);
}

/// All slides in rows, their names beneath, in the shape of the picture.
void addSheet(CVekGDX& gdx, const std::vector<InputSlide>& slides, Size size)
{
    constexpr double kWidth = kCell + kGap;
    constexpr double kHeight = kCell + kNameDrop + kGap;
    const auto count = static_cast<int>(slides.size());
    const double shape = static_cast<double>(size.width) / size.height * kHeight / kWidth;
    const int columns = std::clamp(static_cast<int>(std::ceil(std::sqrt(count * shape))), 1, count);
    for (int i = 0; i < count; ++i) {
        const int row = i / columns;
        const double left = (i - row * columns) * kWidth;
        const double bottom = row * -kHeight;
        const InputSlide& slide = slides[static_cast<std::size_t>(i)];
        addCell(gdx, slide, left, bottom);
        addText(gdx, slide.name, {left + kCell / 2.0, bottom - kNameDrop, 0.0}, kNameHeight, true);
    }
}

} // namespace

void drawCommand(const DrawOptions& options)
{
    checkPictureName(options.output);
    const Size size = sizeOf(options.size, kDrawSize);
    CVekGDX gdx = paper();
    if (!options.view.empty() && !gdx.viewDirectionSet(wide(options.view)))
        throw Failure("--view " + options.view + ": not one of P, N, S, O, W, NO, NW, SO, SW");
    const Input input(options.input);
    if (input.isLibrary() && options.slide.empty())
        addSheet(gdx, input.slides(), size);
    else
        VEK::gdxImageSlide(&gdx, input.slide(options.slide).bytes, 0, nullptr);
    writePicture(gdx, options.output, size);
}

void textCommand(const std::string& text, const std::string& output, const std::string& size)
{
    checkPictureName(output);
    const Size pixels = sizeOf(size, kTextSize);
    CVekGDX gdx = paper();
    addText(gdx, wide(text), CVekPoint3d::kOrigin, 1.0, false);
    CVekPoint3d min, max;
    if (!gdx.extmaxGet(min, max))
        throw Failure("\"" + text + "\": has no character that the font can draw");
    writePicture(gdx, output, pixels);
}

#include "commands.h"
#include "description.h"
#include "failure.h"
#include "input.h"
#include "patterns.h"
#include "sheet.h"

#include <vek/data.h>

#include <algorithm>

namespace
{

constexpr Size kDrawSize{1024, 768};
constexpr Size kTextSize{1024, 256};
/// Puts a slide into a square, as large as it can be.
void addSlide(CVekGDX& gdx, const InputSlide& slide, const CVekPoint3d& corner)
{
    CVekGDX alone = paper();
    VEK::gdxImageSlide(&alone, slide.bytes, 0, nullptr);
    CVekPoint3d min, max;
    if (!alone.extmaxGet(min, max))
        return;
    const double extent = std::max({max[0] - min[0], max[1] - min[1], 1.0});
    const double scale = Sheet::kCell / extent;
    const CVekPoint3d origin(corner[0] + (Sheet::kCell - scale * (min[0] + max[0])) / 2.0,
                             corner[1] + (Sheet::kCell - scale * (min[1] + max[1])) / 2.0, 0.0);
    CVekMatrix3d place;
    place.setCoordSystem(origin, CVekVector3d(scale, 0.0, 0.0), CVekVector3d(0.0, scale, 0.0),
                         CVekVector3d(0.0, 0.0, scale));
    CVekDataItem item(CVekDataItem::directory);
    const CVekDataKey key(L"MTX");
    VEK::dataItemSet(&item, &key, place);
    VEK::gdxImageSlide(&gdx, slide.bytes, 0, &item);
}

void addSlides(CVekGDX& gdx, const Input& input, const std::string& name, Size size)
{
    if (!input.isLibrary() || !name.empty()) {
        VEK::gdxImageSlide(&gdx, input.slide(name).bytes, 0, nullptr);
        return;
    }
    const std::vector<InputSlide>& slides = input.slides();
    Sheet sheet(static_cast<int>(slides.size()), size);
    for (const InputSlide& slide : slides)
        addSlide(gdx, slide, sheet.next(gdx, slide.name));
}

} // namespace

void drawCommand(const DrawOptions& options)
{
    checkPictureName(options.output);
    const Size size = sizeOf(options.size, kDrawSize);
    CVekGDX gdx = paper();
    if (!options.view.empty() && !gdx.viewDirectionSet(wide(options.view)))
        throw Failure("--view " + options.view + ": not one of P, N, S, O, W, NO, NW, SO, SW");
    Patterns patterns;
    if (!isDescription(options.input))
        addSlides(gdx, Input(options.input), options.slide, size);
    else if (options.slide.empty())
        addDescription(gdx, options.input, patterns);
    else
        throw Failure(options.input + ": is no slide library, so that --slide has no place");
    writePicture(gdx, options.output, size);
}

void textCommand(const std::string& text, const std::string& output, const std::string& size)
{
    checkPictureName(output);
    const Size pixels = sizeOf(size, kTextSize);
    CVekGDX gdx = paper();
    addText(gdx, wide(text), CVekMatrix3d(), TextLook());
    CVekPoint3d min, max;
    if (!gdx.extmaxGet(min, max))
        throw Failure("\"" + text + "\": has no character that the font can draw");
    writePicture(gdx, output, pixels);
}

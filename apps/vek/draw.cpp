#include "commands.h"
#include "progress.h"
#include "shared/description.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/lettering.h"
#include "shared/patterns.h"
#include "shared/sample.h"
#include "shared/sheet.h"

#include <charconv>

namespace
{

constexpr Size kDrawSize{1024, 768};
constexpr Size kTextSize{1024, 256};
constexpr double kMostScale = 100.0;

/// A colour from "RRGGBB", with or without "#" before it, or from the number of a palette entry.
bool colorFrom(const std::string& text, CVekColor& color)
{
    const bool hasSign = text.starts_with('#');
    const bool isRgb = text.size() - hasSign == 6;
    unsigned long value = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data() + hasSign, end, value, isRgb ? 16 : 10);
    if (error != std::errc() || last != end || (!isRgb && (hasSign || value > 255)))
        return false;
    if (isRgb)
        color.setColor(value);
    else
        color.setColorIndex(static_cast<short>(value));
    return true;
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

void expectNoSlide(const DrawOptions& options)
{
    if (!options.slide.empty())
        throw Failure(options.input + ": is no slide library, so that --slide has no place");
}

/// A slide or a description, which can be looked at from aside.
void addFlat(CVekGDX& gdx, const DrawOptions& options, Patterns& patterns, Size size)
{
    const ObjectWish& object = options.object;
    if (!object.view.empty() && !gdx.viewDirectionSet(wide(object.view)))
        throw Failure("--view " + object.view + ": not one of P, N, S, O, W, NO, NW, SO, SW");
    if (object.full || object.coord || object.ucs || object.mode != 0 ||
        !(object.kind + object.object + object.active).empty())
        throw Failure(options.input + ": has no objects, so that the options for them have no place");
    if (!isDescription(options.input)) {
        addSlides(gdx, Input(options.input), options.slide, size);
    } else {
        expectNoSlide(options);
        addDescription(gdx, options.input, patterns);
    }
}

} // namespace

void drawCommand(const DrawOptions& options)
{
    checkPictureName(options.output);
    const Size size = sizeOf(options.size, kDrawSize);
    if (!(options.scale > 0.0 && options.scale <= kMostScale))
        throw Failure("--scale: not a number above 0 and up to 100");
    const Progress progress("drawing " + options.input);
    CVekGDX gdx = paper();
    Patterns patterns;
    if (isProject(options.input)) {
        expectNoSlide(options);
        Project(options.input).draw(gdx, options.object);
    } else {
        addFlat(gdx, options, patterns, size);
    }
    if (!options.background.empty()) {
        CVekColor color;
        if (!colorFrom(options.background, color))
            throw Failure("--background " + options.background + ": neither RRGGBB nor a number up to 255");
        gdx.backColorSet(color);
    }
    writePicture(gdx, options.output, size, {options.scale, !options.background.empty()});
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

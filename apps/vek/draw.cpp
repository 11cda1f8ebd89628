#include "commands.h"
#include "shared/description.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/lettering.h"
#include "shared/patterns.h"
#include "shared/sample.h"
#include "shared/sheet.h"

namespace
{

constexpr Size kDrawSize{1024, 768};
constexpr Size kTextSize{1024, 256};

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

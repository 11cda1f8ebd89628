#include "commands.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/lettering.h"
#include "shared/patterns.h"
#include "shared/sheet.h"

#include <cmath>

namespace
{

constexpr Size kOneSize{640, 640};
constexpr Size kSheetSize{1600, 1200};

} // namespace

void hatchCommand(const HatchOptions& options)
{
    checkPictureName(options.output);
    const Size size = sizeOf(options.size, options.name.empty() ? kSheetSize : kOneSize);
    if (!(options.look.scale > 0.0) || !std::isfinite(options.look.scale) || !std::isfinite(options.look.angle))
        throw Failure("--scale and --angle: not a number above 0, and a number");
    Patterns patterns;
    if (!options.patterns.empty())
        patterns.load(options.patterns);
    const CVekString wanted = wide(options.name);
    CVekArrayTempl<VEK::CHatchPattern> chosen;
    for (const VEK::CHatchPattern& pattern : patterns.all()) {
        if (options.name.empty() || pattern.name.compareNoCase(wanted) == 0)
            chosen.append(pattern);
    }
    if (chosen.len() == 0)
        throw Failure(options.name + ": no such pattern" + (options.patterns.empty() ? "" : " in " + options.patterns));
    CVekGDX gdx = paper();
    Sheet sheet(chosen.len(), size);
    for (const VEK::CHatchPattern& pattern : chosen)
        addSample(gdx, {}, pattern, options.look, sheet.next(gdx, pattern.name));
    writePicture(gdx, options.output, size);
}

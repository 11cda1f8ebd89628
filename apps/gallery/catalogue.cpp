#include "catalogue.h"

#include "core/platform/platform.h"
#include "samples.h"
#include "shared/description.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/sample.h"

#include <algorithm>
#include <memory>

namespace
{

using Pictures = std::vector<CataloguePicture>;

/// The files of a folder with an extension, sorted by name.
std::vector<std::filesystem::path> filesOf(const std::filesystem::path& folder, const char* kind)
{
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        if (ending(VEK::platform::utf8Of(VEK::platform::textOf(it->path()))) == kind)
            files.push_back(it->path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string utf8Of(const std::filesystem::path& path)
{
    return VEK::platform::utf8Of(VEK::platform::textOf(path));
}

CVekString nameOf(const std::filesystem::path& path)
{
    return VEK::platform::textOf(path).c_str();
}

void addSlides(Pictures& pictures, const std::filesystem::path& file, const CVekString& group)
{
    const auto input = std::make_shared<Input>(utf8Of(file));
    for (const InputSlide& slide : input->slides()) {
        pictures.push_back({group, input->isLibrary() ? slide.name : nameOf(file.stem()),
                            [input, &slide, file](CVekGDX& gdx, Patterns&) {
                                if (slide.bytes.empty())
                                    throw Failure(utf8Of(file.filename()) + ": its slide is damaged");
                                addSlide(gdx, slide, CVekPoint3d::kOrigin); // large, since a pick reaches five units
                            }});
    }
}

void addFolder(Pictures& pictures, const std::filesystem::path& folder, std::vector<std::string>& problems)
{
    const auto attempt = [&](const std::filesystem::path& file, const CVekString& group) {
        try {
            addSlides(pictures, file, group);
        } catch (const Failure& failure) {
            problems.push_back(failure.what());
        }
    };
    const std::size_t before = pictures.size();
    for (const auto& file : filesOf(folder, ".slb"))
        attempt(file, (L"Slides of " + VEK::platform::textOf(file.filename())).c_str());
    for (const auto& file : filesOf(folder, ".sld"))
        attempt(file, L"Slide files");
    for (const auto& file : filesOf(folder / "sheets", ".json")) {
        pictures.push_back({L"Sheets", nameOf(file.stem()),
                            [file](CVekGDX& gdx, Patterns& patterns) { addDescription(gdx, utf8Of(file), patterns); }});
    }
    if (pictures.size() == before)
        problems.push_back(utf8Of(folder) + ": holds no slides and no sheets");
}

void addPatterns(Pictures& pictures)
{
    const CVekString group = L"Hatch patterns";
    pictures.push_back({group, L"All patterns", addPatternSheet});
    const Patterns own;
    for (const VEK::CHatchPattern& pattern : own.all()) {
        pictures.push_back({group, pattern.name, [pattern](CVekGDX& gdx, Patterns&) { addPattern(gdx, pattern); }});
    }
}

} // namespace

std::vector<CataloguePicture> catalogue(const std::string& folder, std::vector<std::string>& problems)
{
    Pictures pictures;
    if (!folder.empty())
        addFolder(pictures, VEK::platform::pathOf(VEK::platform::wideOf(folder)), problems);
    pictures.push_back({L"Kinds of items", L"All kinds", addKinds});
    pictures.push_back({L"Kinds of items", L"Arcs", addArcs});
    pictures.push_back({L"Texts", L"Letters", addLetters});
    pictures.push_back({L"Texts", L"Alignment", addAlignment});
    pictures.push_back({L"Texts", L"Turned", addTurned});
    addPatterns(pictures);
    return pictures;
}

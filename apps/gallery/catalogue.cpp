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

/// An assembly, every element of which can be picked.
void addElements(Pictures& pictures, const CVekString& name, const std::string& path, const ObjectWish& wish)
{
    constexpr double kSize = 1000.0; // a pick reaches five units, whatever the size of the assembly
    const auto elements = std::make_shared<std::vector<ProjectElement>>();
    const auto add = [=](CVekGDX& gdx, Patterns&) {
        const Project project(path);
        CVekGDX trial;
        CVekPoint3d min, max;
        project.drawElements(trial, wish, 1.0);
        trial.extmaxGet(min, max);
        const double size = std::max(max[0] - min[0], max[1] - min[1]);
        *elements = project.drawElements(gdx, wish, size > 0.0 ? kSize / size : 1.0);
    };
    pictures.push_back({L"Objects", name, add, elements});
}

void addObjects(Pictures& pictures, const std::filesystem::path& file)
{
    const std::string path = utf8Of(file);
    const auto addWhole = [&](const CVekString& name, const ObjectWish& wish) {
        pictures.push_back({L"Objects", name, [=](CVekGDX& gdx, Patterns&) { Project(path).draw(gdx, wish); }});
    };
    const Project project(path);
    for (const ProjectObject& object : project.objects()) {
        ObjectWish wish;
        wish.object = utf8(object.name);
        if (!object.kind.empty()) {
            if (object.kind == "bgr")
                addElements(pictures, object.name, path, wish);
            else
                addWhole(object.name, wish);
            continue;
        }
        constexpr std::pair<const char*, const wchar_t*> kViews[] = {
            {"S", L", elevation"}, {"E", L", side"}, {"P", L", plan"}, {"SO", L", corner"}};
        for (const auto& [view, text] : kViews) {
            wish.view = view;
            addElements(pictures, object.name + text, path, wish);
        }
        wish.full = true;
        addWhole(object.name + L", solid", wish);
    }
}

void addFolder(Pictures& pictures, const std::filesystem::path& folder, std::vector<std::string>& problems)
{
    const auto attempt = [&](const auto& add) {
        try {
            add();
        } catch (const Failure& failure) {
            problems.push_back(failure.what());
        }
    };
    const std::size_t before = pictures.size();
    for (const auto& file : filesOf(folder, ".slb"))
        attempt([&] { addSlides(pictures, file, (L"Slides of " + VEK::platform::textOf(file.filename())).c_str()); });
    for (const auto& file : filesOf(folder, ".sld"))
        attempt([&] { addSlides(pictures, file, L"Slide files"); });
    for (const auto& file : filesOf(folder, ".json"))
        attempt([&] {
            if (isProject(utf8Of(file)))
                addObjects(pictures, file);
        });
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

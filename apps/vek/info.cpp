#include "commands.h"
#include "shared/description.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/lettering.h"

#include <array>
#include <cstdio>
#include <map>
#include <set>

namespace
{

std::string number(double value)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.6g", value);
    return text.data();
}

/// The items by type, as "715 polylines, 20 regions".
std::string itemTypes(const CVekGDX& gdx)
{
    const std::pair<VekDisplayObj, const char*> kinds[] = {{dispPolyline, "polyline"},
                                                           {dispPoint, "point"},
                                                           {dispRegion, "region"},
                                                           {dispText, "text"},
                                                           {dispPicture, "picture"}};
    std::string text;
    for (const auto& [kind, name] : kinds) {
        int count = 0;
        for (int i = 0; i < gdx.lenGet(); ++i)
            count += gdx.typeGet(i) == kind;
        if (count)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + name + (count == 1 ? "" : "s");
    }
    return text.empty() ? "none" : text;
}

std::string colours(const CVekGDX& gdx)
{
    std::map<int, std::pair<CVekColor, int>> counts;
    for (int i = 0; i < gdx.lenGet(); ++i) {
        auto& [color, count] = counts[gdx.colorGet(i).colorIndex()];
        color = gdx.colorGet(i);
        ++count;
    }
    std::string text;
    for (const auto& [index, entry] : counts) {
        std::array<char, 80> line{};
        if (index < 0)
            std::snprintf(line.data(), line.size(), "none          %6d items\n", entry.second);
        else
            std::snprintf(line.data(), line.size(), "%4d  #%06lX %6d items\n", index, entry.first.color(),
                          entry.second);
        text += (text.empty() ? "  colours  " : "           ") + std::string(line.data());
    }
    return text;
}

std::string describe(const CVekGDX& gdx)
{
    std::string text = "  items    " + itemTypes(gdx) + "\n";
    CVekPoint3d min, max;
    if (gdx.extmaxGet(min, max)) {
        text += "  extents  " + number(min[0]) + ", " + number(min[1]) + " to " + number(max[0]) + ", " +
                number(max[1]) + "\n";
    }
    return text + colours(gdx);
}

/// The elements of an assembly by type, each name once.
std::string elementTypes(const Project& project, const ProjectObject& object)
{
    std::map<std::string, std::pair<int, std::set<std::string>>> types;
    int count = 0;
    for (const ProjectElement& element : project.elements(object)) {
        auto& [number, names] = types[utf8(element.type)];
        names.insert(utf8(element.name));
        ++number;
        ++count;
    }
    std::string text = count ? "  elements " + std::to_string(count) + "\n" : "";
    for (const auto& [type, entry] : types) {
        std::array<char, 40> head{};
        std::snprintf(head.data(), head.size(), "    %-8s %4d  ", type.c_str(), entry.first);
        std::string names;
        for (const std::string& name : entry.second)
            names += (names.empty() ? "" : ", ") + name;
        text += head.data() + names + "\n";
    }
    return text;
}

void print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void projectInfo(const std::string& input, const ObjectWish& wish)
{
    const Patterns patterns;
    const Project project(input);
    const bool all = wish.kind.empty() && wish.object.empty();
    for (const ProjectObject& object : all ? project.objects() : std::vector<ProjectObject>{project.find(wish)}) {
        CVekGDX gdx = paper();
        ObjectWish own = wish;
        own.object = utf8(object.name);
        project.draw(gdx, own);
        const bool isAssembly = object.kind.empty() || object.kind == "bgr";
        print(input + " " + own.object + "\n" + (isAssembly ? elementTypes(project, object) : "") + describe(gdx));
    }
}

} // namespace

void listCommand(const std::string& input)
{
    if (ending(input) == ".pat") {
        for (const VEK::CHatchPattern& pattern : patternsOf(input))
            print(utf8(pattern.name) + "\n");
        return;
    }
    if (isProject(input)) {
        const Project project(input);
        for (const ProjectObject& object : project.objects())
            print((object.kind.empty() ? "bgr" : object.kind) + "\t" + utf8(object.name) + "\n");
        return;
    }
    const Input library(input);
    if (!library.isLibrary())
        throw Failure(input + ": is a single slide, not a slide library (.slb)");
    for (const InputSlide& slide : library.slides())
        print(utf8(slide.name) + "\n");
}

void infoCommand(const std::string& input, const std::string& slideName, const ObjectWish& wish)
{
    if (isProject(input)) {
        projectInfo(input, wish);
        return;
    }
    if (isDescription(input)) {
        Patterns patterns;
        CVekGDX gdx = paper();
        addDescription(gdx, input, patterns);
        print(input + "\n" + describe(gdx));
        return;
    }
    const Input file(input);
    const bool all = file.isLibrary() && slideName.empty();
    for (const InputSlide& slide : all ? file.slides() : std::vector<InputSlide>{file.slide(slideName)}) {
        CVekGDX gdx = paper();
        VEK::gdxImageSlide(&gdx, slide.bytes, 0, nullptr);
        print(input + (file.isLibrary() ? " " + utf8(slide.name) : "") + "\n");
        print(slide.bytes.empty() ? "  damaged\n" : describe(gdx));
    }
}

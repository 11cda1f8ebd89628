// The command line of the library. docs/command-line.md describes its use.
#include "commands.h"
#include "core/platform/platform.h"
#include "shared/failure.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>

namespace
{

/// Prints one line, whatever the text.
int fail(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::fprintf(stderr, "vek: %s\n", text.c_str());
    return 2;
}

void addObject(CLI::App& command, ObjectWish& wish)
{
    command.add_option("--kind", wish.kind, "the first object of a kind")
        ->check(CLI::IsMember({"bgr", "fsheet", "bar", "drill", "hole", "extr"}));
    command.add_option("--object", wish.object, "name of an object of the project [its assembly]");
}

void run(std::vector<std::string> arguments)
{
    CLI::App app("Draws slides, display descriptions, objects, hatches and texts of facade and metal CAD.", "vek");
    app.require_subcommand(1);
    app.set_version_flag("--version", "vek " VEK_VERSION, "Print the version and exit");
    app.allow_windows_style_options(false); // a path may begin with a slash on every system

    DrawOptions draw;
    CLI::App* drawing = app.add_subcommand(
        "draw", "Draw a slide, all slides of a library on one sheet, a display description or an object of a project");
    drawing->add_option("IN", draw.input, "slide (.sld), library (.slb), description or project (.json)")->required();
    drawing->add_option("-o,--output", draw.output, "picture: .svg, .emf or .png")->required();
    drawing->add_option("--slide", draw.slide, "name of a slide of the library");
    drawing->add_option("--size", draw.size, "width and height in pixels [1024x768]")->type_name("WxH");
    drawing->add_option("--view", draw.object.view, "view: P, N, S, O, W, NO, NW, SO, SW, of an object also E [P]");
    drawing->add_option("--scale", draw.scale, "factor on line widths and marks, for large and fine pictures [1]");
    drawing->add_option("--background", draw.background, "draw as on a screen of this colour, RRGGBB or 0 to 255")
        ->type_name("COLOUR");
    addObject(*drawing, draw.object);
    drawing->add_flag("--full", draw.object.full, "an assembly as one solid, without its hidden lines");
    drawing->add_option("--cmode", draw.object.mode, "colour mode of all lines; 1 shows hidden lines, too [0]");
    drawing->add_option("--act", draw.object.active, "name of the active element");
    drawing->add_flag("--coord", draw.object.coord, "mark the origin");
    drawing->add_flag("--ucs", draw.object.ucs, "draw the axes");
    drawing->callback([&] { drawCommand(draw); });

    std::string input;
    CLI::App* list =
        app.add_subcommand("list", "List the slides of a library, the patterns of a file, or the objects of a project");
    list->add_option("IN", input, "slide library (.slb), pattern file (.pat) or project (.json)")->required();
    list->callback([&] { listCommand(input); });

    std::string slide;
    CLI::App* info = app.add_subcommand("info", "Tell items by type, extents and colours");
    info->add_option("IN", input, "slide (.sld), library (.slb), description or project (.json)")->required();
    info->add_option("--slide", slide, "name of a slide of the library");
    ObjectWish told;
    addObject(*info, told);
    info->callback([&] { infoCommand(input, slide, told); });

    HatchOptions hatch;
    CLI::App* hatching =
        app.add_subcommand("hatch", "Draw a sample of a hatch pattern, or of all patterns on one sheet");
    hatching->add_option("NAME", hatch.name, "the pattern, in any case; all if it is left out");
    hatching->add_option("-o,--output", hatch.output, "picture: .svg, .emf or .png")->required();
    hatching->add_option("--patterns", hatch.patterns, "pattern file (.pat) to use in place of the program's own");
    hatching->add_option("--angle", hatch.look.angle, "degrees that the pattern is turned by, counter-clockwise [0]");
    hatching->add_option("--scale", hatch.look.scale, "factor on the pattern [1]");
    hatching->add_flag("--crossed", hatch.look.crossed, "lines in both directions; for _USER and _U alone");
    hatching->add_option("--size", hatch.size, "width and height in pixels [640x640, all: 1600x1200]")
        ->type_name("WxH");
    hatching->callback([&] { hatchCommand(hatch); });

    std::string text;
    std::string output;
    std::string size;
    CLI::App* lettering = app.add_subcommand("text", "Draw a line of text in the stroke font");
    lettering->add_option("TEXT", text, "the text")->required();
    lettering->add_option("-o,--output", output, "picture: .svg, .emf or .png")->required();
    lettering->add_option("--size", size, "width and height in pixels [1024x256]")->type_name("WxH");
    lettering->callback([&] { textCommand(text, output, size); });

    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(arguments);
    } catch (const CLI::Success& help) {
        app.exit(help);
    } catch (const CLI::ParseError& error) {
        const bool isCommand = !app.get_subcommands().empty() || app.remaining().empty();
        throw Failure((isCommand ? error.what() : app.remaining().front() + " is no command") + "; see vek --help");
    }
}

} // namespace

int main(int argc, char** argv)
{
    try {
        run(VEK::platform::programArguments(argc, argv));
        checkMemory();
        return std::fflush(stdout) == 0 ? 0 : fail("standard output: cannot be written");
    } catch (const std::bad_alloc&) {
        return fail("memory does not suffice");
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}

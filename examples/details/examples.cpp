#include "details.h"

namespace slides
{

std::vector<std::pair<std::string, Bytes>> exampleFiles()
{
    // Names in code page 1252, as in the suite's libraries.
    const std::vector<std::pair<std::string, Bytes>> details = {
        {"PFOSTEN", mullionSection(Format::level2Little)},
        {"RIEGEL", transomSection(Format::level2Little)},
        {"GLASLEISTE", glazingBead(Format::level2Little)},
        {"DICHTUNG", gasketProfile(Format::level2Big)},
        {"KONSOLE", bracketSection(Format::level2Little)},
        {"TRENNSTEG", thermalBreak(Format::level2Big)},
        {"ECKWINKEL", cornerAngle(Format::level1)},
        {"TRAPEZBLECH", sheetProfile(Format::level2Little)},
        {"D\xC4MMPANEEL", sandwichPanel(Format::level2Little)},
        {"BOHRSCHRAUBE", drillScrew(Format::level2Big)},
    };
    return {{"facade.slb", makeLibrary(details)},
            {"mullion.sld", mullionSection(Format::level2Little)},
            {"screw.sld", drillScrew(Format::level2Big)},
            {"angle.sld", cornerAngle(Format::level1)}};
}

} // namespace slides

#include "display/pass_rules.h"

namespace VEK
{
namespace
{

constexpr PassRules kPaper = {.fitsView = true,
                              .fillsBackground = false,
                              .colorFix = PassRules::ColorFix::whiteToBlack,
                              .dot = PassRules::Dot::line,
                              .closedIsContinuous = true,
                              .fill = PassRules::Fill::scanLines,
                              .fillAndHatch = true,
                              .splitsBeforeTest = false,
                              .testsInView = false,
                              .inverseFillsInverse = false,
                              .chords = 0.0,
                              .textChords = 0.0,
                              .square = PassRules::Square::box,
                              .marksFromWholePixels = false,
                              .skipsOutside = false,
                              .picturesOnPaper = true,
                              .picturesShowThrough = false};

} // namespace

constexpr PassRules paperRules = kPaper;

constexpr PassRules screenRules = {.fitsView = false,
                                   .fillsBackground = true,
                                   .colorFix = PassRules::ColorFix::offBackground,
                                   .dot = PassRules::Dot::pixel,
                                   .closedIsContinuous = false,
                                   .fill = PassRules::Fill::polygon,
                                   .fillAndHatch = false,
                                   .splitsBeforeTest = true,
                                   .testsInView = true,
                                   .inverseFillsInverse = true,
                                   .chords = 0.0,
                                   .textChords = 0.1,
                                   .square = PassRules::Square::exact,
                                   .marksFromWholePixels = true,
                                   .skipsOutside = true,
                                   .picturesOnPaper = false,
                                   .picturesShowThrough = false};

constexpr PassRules scalableRules = [] {
    PassRules rules = kPaper;
    rules.fill = PassRules::Fill::polygon;
    rules.chords = 0.05;
    rules.picturesShowThrough = true;
    return rules;
}();

constexpr PassRules scalableScreenRules = [] {
    PassRules rules = scalableRules;
    rules.fillsBackground = true;
    rules.colorFix = PassRules::ColorFix::offBackground;
    rules.inverseFillsInverse = true;
    rules.picturesOnPaper = false;
    return rules;
}();

} // namespace VEK

#include <vek/data/dir.h>
#include <vek/objects/outline.h>

#include "core/values/whole.h"

#include <cwchar>

namespace VEK
{
namespace
{

struct Word {
    const wchar_t* word;
    double value;
};

/// Diameters of clearance holes for metric screws, medium series of ISO 273.
constexpr Word kClearance[] = {{L"M4", 4.5}, {L"M5", 5.5},   {L"M6", 6.6},   {L"M8", 9.0},
                               {L"M10", 11}, {L"M12", 13.5}, {L"M16", 17.5}, {L"M20", 22.0}};

/// Widths across flats of metric hexagon heads, ISO 4014.
constexpr Word kAcrossFlats[] = {{L"M4", 7},   {L"M5", 8},   {L"M6", 10},  {L"M8", 13},
                                 {L"M10", 16}, {L"M12", 18}, {L"M16", 24}, {L"M20", 30}};

constexpr Word kAngles[] = {{L"VIERTEL", 1.5707963267948966}, {L"HALB", 3.141592653589793}};

constexpr int kRequired = 1, kNotZero = 2, kNotNegative = 4;
constexpr int kAbove0 = kRequired | kNotZero | kNotNegative, kFrom0 = kRequired | kNotNegative;

/// What a parameter is.
struct Meaning {
    const wchar_t* text;
    int valid = kAbove0;
    const wchar_t* negative = nullptr;
    const wchar_t* type = nullptr;
    const Word* words = nullptr;
    int wordCount = 0;
};

enum MeaningIndex {
    width,
    widthX,
    height,
    side,
    diameter,
    diameterHole,
    diameterY,
    radius,
    chamfer,
    length,
    acrossFlats,
    hexFlats,
    base,
    widthLow,
    widthTop,
    shift,
    web,
    flange,
    fillet,
    legUp,
    legLevel,
    thickness,
    lip,
    barUp,
    barLevel,
    radiusOut,
    radiusIn,
    angle,
    wall,
    root,
    toe,
    bend,
    crown,
    foot,
    brim,
    chord,
    slotWidth,
    depth,
    rise,
    gable
};

const Meaning kMeanings[] = {
    {L"Breite"},
    {L"Breite", kAbove0, L"Breite gespiegelt"},
    {L"Höhe"},
    {L"Seite"},
    {L"Durchmesser"},
    {L"Durchmesser", kAbove0, nullptr, nullptr, kClearance, int(std::size(kClearance))},
    {L"Durchmesser", kAbove0, L"Durchmesser nach unten"},
    {L"Radius", kFrom0},
    {L"Fase", kFrom0},
    {L"Länge"},
    {L"Schlüsselweite"},
    {L"Schlüsselweite", kAbove0, nullptr, nullptr, kAcrossFlats, int(std::size(kAcrossFlats))},
    {L"Grundseite"},
    {L"Breite unten", kFrom0},
    {L"Breite oben", kFrom0},
    {L"Versatz", kFrom0, L"Versatz nach links"},
    {L"Stegdicke"},
    {L"Flanschdicke"},
    {L"Ausrundung", kFrom0},
    {L"Dicke senkrecht"},
    {L"Dicke waagerecht"},
    {L"Blechdicke"},
    {L"Lippe"},
    {L"Breite senkrecht"},
    {L"Breite waagerecht"},
    {L"Außenradius"},
    {L"Innenradius", kFrom0},
    {L"Winkel", kAbove0, L"Winkel rechtsdrehend", L"A", kAngles, int(std::size(kAngles))},
    {L"Wanddicke"},
    {L"Innenrundung", kFrom0},
    {L"Kantenrundung", kFrom0},
    {L"Biegeradius", kFrom0},
    {L"Obergurt"},
    {L"Fußweite"},
    {L"Krempe"},
    {L"Sehne"},
    {L"Schlitzbreite"},
    {L"Tiefe"},
    {L"Stich"},
    {L"Giebelhöhe"},
};
static_assert(std::size(kMeanings) == gable + 1);

struct Parameter {
    MeaningIndex meaning;
    double values[4]; ///< default values of the four ranges
};

constexpr int kMostParameters = 6;

struct Entry {
    int groups;
    OutlineText textgen;
    const wchar_t* text;
    int count;
    Parameter parameters[kMostParameters];
};

constexpr int kBasic = outlineBasic, kMore = outlineExtended, kRound = outlineSpecial, kHole = outlineMachining;

/// The entries in the order of their codes.
// Kept one shape to a row or two, which the formatter would break up.
// clang-format off
const Entry kEntries[] = {
    {kBasic | kHole, outlineTextDiameter, L"Rund", 1, {{diameterHole, {1, 9, 100, 1000}}}},
    {kBasic | kHole, outlineTextSize, L"Rechteck", 2, {{width, {1, 10, 100, 1000}}, {height, {0.5, 5, 50, 500}}}},
    {kBasic | kHole, outlineTextSize, L"Quadrat", 1, {{side, {1, 10, 100, 1000}}}},
    {kBasic | kHole, outlineTextAll, L"Rechteck gerundet", 3,
     {{width, {1, 10, 100, 1000}}, {height, {0.5, 5, 50, 500}}, {radius, {0.1, 1, 10, 50}}}},
    {kMore | kHole, outlineTextAll, L"Rechteck gefast", 3,
     {{width, {1, 10, 100, 1000}}, {height, {0.5, 5, 50, 500}}, {chamfer, {0.1, 1, 5, 20}}}},
    {kMore | kHole, outlineTextSize, L"Langloch", 2, {{length, {2, 20, 100, 1000}}, {diameterHole, {1, 9, 22, 100}}}},
    {kMore | kHole, outlineTextAll, L"Sechskant", 1, {{hexFlats, {1, 10, 100, 1000}}}},
    {kMore, outlineTextAll, L"Achtkant", 1, {{acrossFlats, {1, 10, 100, 1000}}}},
    {kMore, outlineTextAll, L"Dreieck", 2, {{base, {1, 10, 100, 1000}}, {height, {1, 10, 80, 800}}}},
    {kMore, outlineTextAll, L"Dreieck rechtwinklig", 2, {{widthX, {1, 10, 100, 1000}}, {height, {1, 10, 80, 800}}}},
    {kMore, outlineTextAll, L"Trapez", 3,
     {{widthLow, {1, 10, 100, 1000}}, {widthTop, {0.5, 5, 60, 600}}, {height, {0.5, 5, 50, 500}}}},
    {kMore, outlineTextAll, L"Parallelogramm", 3,
     {{width, {1, 10, 100, 1000}}, {height, {0.5, 5, 50, 500}}, {shift, {0.2, 2, 25, 250}}}},
    {kBasic, outlineTextAll, L"Winkel", 5,
     {{widthX, {1, 10, 60, 200}}, {height, {1, 10, 100, 200}}, {legUp, {0.1, 2, 8, 20}}, {legLevel, {0.1, 2, 8, 20}},
      {fillet, {0, 1, 8, 18}}}},
    {kBasic, outlineTextAll, L"T-Profil", 5,
     {{width, {1, 10, 80, 300}}, {height, {1, 10, 80, 150}}, {web, {0.1, 2, 9, 11}}, {flange, {0.1, 2, 9, 19}},
      {fillet, {0, 1, 9, 27}}}},
    {kBasic, outlineTextAll, L"I-Profil", 5,
     {{width, {1, 10, 82, 300}}, {height, {2, 20, 160, 600}}, {web, {0.1, 1.5, 5, 15.5}},
      {flange, {0.1, 2, 7.4, 30}}, {fillet, {0, 1, 9, 27}}}},
    {kBasic, outlineTextAll, L"U-Profil", 5,
     {{widthX, {1, 10, 50, 100}}, {height, {2, 20, 100, 300}}, {web, {0.1, 2, 6, 10}}, {flange, {0.1, 2, 8.5, 16}},
      {fillet, {0, 1, 8.5, 16}}}},
    {kBasic, outlineTextAll, L"Z-Profil", 5,
     {{widthX, {1, 10, 55, 100}}, {height, {2, 20, 100, 300}}, {web, {0.1, 2, 6.5, 10}}, {flange, {0.1, 2, 8, 16}},
      {fillet, {0, 1, 8, 16}}}},
    {kMore, outlineTextAll, L"C-Profil", 4,
     {{width, {1, 10, 40, 100}}, {height, {2, 20, 60, 300}}, {thickness, {0.1, 1, 3, 6}}, {lip, {0.3, 3, 12, 30}}}},
    {kMore, outlineTextAll, L"Kreuz", 4,
     {{width, {1, 10, 100, 1000}}, {height, {1, 10, 100, 1000}}, {barUp, {0.1, 2, 10, 100}},
      {barLevel, {0.1, 2, 10, 100}}}},
    {kRound | kHole, outlineTextAll, L"Viertelkreis", 1, {{radiusOut, {1, 10, 100, 1000}}}},
    {kRound, outlineTextAll, L"Ringausschnitt", 3,
     {{radiusOut, {1, 10, 100, 1000}}, {radiusIn, {0.5, 5, 50, 800}}, {angle, {90, 90, 90, 90}}}},
    {kRound, outlineTextAll, L"Halbkreis", 1, {{diameterY, {1, 10, 100, 1000}}}},
    {kRound | kHole, outlineTextSize, L"Ellipse", 2, {{width, {1, 10, 100, 1000}}, {height, {0.5, 5, 60, 600}}}},
    {kBasic, outlineTextAll, L"Rundrohr", 2, {{diameter, {1, 10, 48.3, 323.9}}, {wall, {0.1, 1, 3.2, 8}}}},
    {kBasic, outlineTextAll, L"Rechteckrohr", 4,
     {{width, {1, 10, 50, 200}}, {height, {1, 20, 100, 300}}, {wall, {0.1, 1, 3, 8}}, {radius, {0.1, 1, 4.5, 16}}}},
    {kBasic, outlineTextAll, L"Winkelstahl", 5,
     {{widthX, {1, 20, 50, 200}}, {height, {1, 20, 100, 200}}, {thickness, {0.1, 3, 8, 20}},
      {root, {0.1, 3.5, 8, 18}}, {toe, {0.05, 1.75, 4, 9}}}},
    {kMore, outlineTextAll, L"Kantwinkel", 4,
     {{widthX, {1, 10, 60, 500}}, {height, {1, 20, 80, 500}}, {thickness, {0.1, 1, 2, 3}}, {bend, {0.1, 1, 2, 3}}}},
    {kMore, outlineTextAll, L"U-Kantprofil", 4,
     {{widthX, {1, 10, 40, 250}}, {height, {2, 20, 80, 1000}}, {thickness, {0.1, 1, 2, 3}}, {bend, {0.1, 1, 2, 3}}}},
    {kMore, outlineTextAll, L"Z-Kantprofil", 4,
     {{widthX, {1, 10, 40, 100}}, {height, {2, 20, 60, 500}}, {thickness, {0.1, 1, 2, 3}}, {bend, {0.1, 1, 2, 3}}}},
    {kMore, outlineTextAll, L"C-Pfette", 5,
     {{widthX, {1, 10, 60, 80}}, {height, {2, 20, 140, 300}}, {lip, {0.4, 4, 20, 25}}, {thickness, {0.1, 1, 2, 3}},
      {bend, {0.1, 1, 3, 4}}}},
    {kMore, outlineTextAll, L"Z-Pfette", 5,
     {{widthX, {1, 10, 60, 80}}, {height, {2, 20, 140, 300}}, {lip, {0.4, 4, 20, 25}}, {thickness, {0.1, 1, 2, 3}},
      {bend, {0.1, 1, 3, 4}}}},
    {kMore, outlineTextAll, L"Kantwinkel mit Lippen", 5,
     {{widthX, {1, 10, 60, 300}}, {height, {1, 10, 60, 300}}, {lip, {0.3, 3, 12, 25}}, {thickness, {0.1, 1, 2, 3}},
      {bend, {0.05, 0.5, 2, 3}}}},
    {kMore, outlineTextAll, L"Hutprofil", 5,
     {{crown, {1, 10, 40, 100}}, {height, {0.5, 10, 30, 200}}, {brim, {0.5, 5, 30, 60}}, {thickness, {0.1, 1, 2, 3}},
      {bend, {0.1, 1, 2, 3}}}},
    {kMore, outlineTextAll, L"Trapezrippe", 6,
     {{crown, {1, 10, 40, 119}}, {foot, {1.4, 14, 67, 240}}, {height, {0.5, 5, 35, 135}}, {brim, {0.5, 5, 30, 35}},
      {thickness, {0.05, 0.5, 0.75, 1}}, {bend, {0.1, 1, 3, 6}}}},
    {kRound, outlineTextAll, L"Kreisabschnitt", 2, {{chord, {1, 10, 100, 1000}}, {height, {0.2, 2, 25, 200}}}},
    {kRound | kHole, outlineTextAll, L"Rund mit Fläche", 2,
     {{diameter, {1, 10, 22, 1000}}, {height, {0.8, 8, 20, 900}}}},
    {kRound | kHole, outlineTextAll, L"Rund mit zwei Flächen", 2,
     {{diameter, {1, 10, 22, 1000}}, {acrossFlats, {0.8, 8, 18, 800}}}},
    {kHole, outlineTextAll, L"Schlüsselloch", 3,
     {{diameter, {1, 10, 17, 500}}, {slotWidth, {0.5, 5, 10, 200}}, {height, {2, 20, 33, 1000}}}},
    {kHole, outlineTextAll, L"Ausklinkung", 2, {{width, {1, 9, 50, 300}}, {depth, {2, 20, 100, 500}}}},
    {kRound, outlineTextAll, L"Scheibe mit Bogen", 3,
     {{width, {1, 10, 100, 1000}}, {height, {2, 20, 150, 2000}}, {rise, {0.2, 2, 25, 300}}}},
    {kRound, outlineTextAll, L"Scheibe mit Giebel", 3,
     {{width, {1, 10, 100, 1000}}, {height, {2, 20, 150, 2000}}, {gable, {0.2, 2, 40, 500}}}},
};
// clang-format on
static_assert(std::size(kEntries) == outlineKinds);

// The first digit of a text key's number.
constexpr int kOfKind = 1, kOfParameter = 2, kOfNegative = 3;

CVekString textKey(int digit, int number)
{
    CVekString key;
    key.format(L"VEK_OUTL_%d%03d", digit, number);
    return key;
}

bool set(CVekDataItem* item, const wchar_t* name, const auto& value)
{
    const CVekDataKey key(name);
    return dataItemSet(item, &key, value);
}

bool fillParameter(CVekDataItem* item, const Parameter& parameter)
{
    const Meaning& meaning = kMeanings[parameter.meaning];
    bool good = set(item, L"LABEL", textKey(kOfParameter, parameter.meaning)) && set(item, L"VALID", meaning.valid);
    for (int range = 1; range <= 4; ++range) {
        const CVekDataKey key(5005, L"VAL", 5003, range, 0);
        good = good && dataItemSet(item, &key, parameter.values[range - 1]);
    }
    if (meaning.negative)
        good = good && set(item, L"MINUSP", textKey(kOfNegative, parameter.meaning));
    if (meaning.type)
        good = good && set(item, L"TYPE", CVekString(meaning.type));
    for (int i = 0; i < meaning.wordCount; ++i) {
        const CVekDataKey key(5005, L"KWORD", 5005, meaning.words[i].word, 0);
        good = good && dataItemSet(item, &key, meaning.words[i].value);
    }
    return good;
}

bool fillEntry(CVekDataItem* item, const Entry& entry, int code)
{
    bool good = set(item, L"CODE", entry.groups) && set(item, L"LABEL", textKey(kOfKind, code)) &&
                set(item, L"TXTGEN", int(entry.textgen)) && set(item, L"PARMS", entry.count);
    for (int i = 0; good && i < entry.count; ++i) {
        CVekString name;
        name.format(L"PARM%d", i + 1);
        CVekDataItem* parameter = item->makeDir(name);
        good = parameter && fillParameter(parameter, entry.parameters[i]);
    }
    return good;
}

} // namespace

bool outlineInit(CVekDataItem* library)
{
    if (!library)
        return false;
    CVekDataItem made = whole(CVekDataItem(), [] {
        CVekDataItem filled(CVekDataItem::directory);
        for (int code = 1; code <= outlineKinds; ++code) {
            const CVekDataKey key(CVekDataKey::keyInt, code);
            CVekDataItem* entry = filled.makeItem(&key);
            if (!entry || !entry->mkDir() || !fillEntry(entry, kEntries[code - 1], code))
                return CVekDataItem();
        }
        return filled;
    });
    if (!made.isDir())
        return false;
    *library = std::move(made);
    return true;
}

CVekString outlineText(const wchar_t* key)
{
    constexpr int kPrefix = 9;
    const int whichever = key && std::wcslen(key) > kPrefix ? atoi(key + kPrefix) : 0;
    const int digit = whichever / 1000, number = whichever % 1000;
    if (!key || textKey(digit, number) != key)
        return {};
    const wchar_t* text = nullptr;
    if (digit == kOfKind && number >= 1 && number <= outlineKinds)
        text = kEntries[number - 1].text;
    else if (number >= 0 && number < int(std::size(kMeanings)))
        text = digit == kOfParameter  ? kMeanings[number].text
               : digit == kOfNegative ? kMeanings[number].negative
                                      : nullptr;
    return whole(CVekString(), [&] { return CVekString(text); });
}

} // namespace VEK

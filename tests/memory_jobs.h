/// @file
/// What is done while memory ends: jobs that each need memory, and a world of objects that they work on.
#pragma once

#include "display_hash.h"
#include "picture_bytes.h"
#include "shapes.h"
#include "slide_bytes.h"
#include "test_folder.h"

#include <vek/json.h>
#include <vek/objects.h>
#include <vek/vek.h>

#include <functional>
#include <optional>

namespace memory_test
{

using display_test::Hash, shapes::Polylines;

inline CVekVertexArray arcs(const CVekVector3d& normal)
{
    CVekVertexArray polyline{{{0, 0, 0}, {1, 0, 0}, 0.5}, {{1, 0, 0}, {1, 1, 0}, -1.0}};
    polyline.setNormal(normal);
    return polyline;
}

/// A tree with every kind of leaf that owns memory, deep and broad.
inline CVekDataItem sample()
{
    CVekDataItem tree;
    VEK::dataSet(&tree, L"TEXT", L"a text that fits into no buffer of its own");
    VEK::dataSet(&tree, L"A\\B\\C\\D", 1);
    VEK::dataSet(&tree, L"VL", arcs({0, 1, 0}));
    VEK::dataSet(&tree, L"REG", VEK::Regions{{arcs({0, 0, 1}), arcs({0, 0, -1})}, {}});
    VEK::dataSet(&tree, L"LIST", CVekArrayTempl<CVekString>{L"one", L"two"});
    VEK::dataSet(&tree, L"HATCH", VEK::CHatchProp(L"ANSI31", 0.5, 2.0, true));
    for (int i = 0; i < 12; ++i) { // more than are searched one by one
        const CVekDataKey key(5005, L"MANY", 5003, i, 0);
        VEK::dataItemSet(&tree, &key, 0.5 * i);
    }
    return tree;
}

inline std::string jsonOf(const CVekDataItem& tree)
{
    std::string text;
    CVekString error;
    EXPECT_TRUE(VEK::jsonWrite(tree, text, L"", error));
    return text;
}

const slide_test::Bytes kSlideBytes = slide_test::withWords(
    slide_test::littleHeader(),
    {0xFF01, 10, 20,     30, 40,     0xFD00, 4,  0xFFFE, 0xFD00, 10, 10, 0xFD00, 30, 10,    0xFD00,
     30,     30, 0xFD00, 0,  0xFFFE, 11,     21, 31,     41,     12, 22, 32,     42, 0xFC00});

/// A library of one slide.
inline std::string libraryBytes()
{
    using picture_bytes::le;
    std::string bytes = std::string(32, ' ') + "one" + std::string(29, '\0') + le(104, 4) + std::string(36, '\0');
    return bytes.append(kSlideBytes.begin(), kSlideBytes.end());
}

const TestFolder kFolder(L"memory");

const CVekGDX::Stack kLine{1}, kText{2}, kRegion{3}, kNew{7, 8, 9};
const CVekString
    kBmp = kFolder.save(L"a.bmp", picture_bytes::bmp(picture_bytes::info(4, 4, 24), std::string(48, '\x40'))).c_str(),
    kLibrary = kFolder.save(L"a.slb", libraryBytes()).c_str(),
    kTexts = kFolder.save(L"a.json", R"({"*MSG*": {"VEK_": {"de": {"KEY": "a text that is loaded"}}}})").c_str();
const CVekString kAnother(L"another key"), kUser(L"_USER"), kDots(L"DOTS"), kView(L"NO"), kSlide(L"one");
const CVekArrayTempl<double> kDashes{0.5, -0.25}, kAngle{9, 9, 2, 2, 1};
const CVekVertexArray kUpright = arcs({0, 1, 0}), kSlanted = arcs({0, 1, 1}) += arcs({0, 1, 1}),
                      kCross{{{0.5, -1, 0}, {0.5, 2, 0}}};
const CVekDataKey kDeep(5005, L"A", 5005, L"B", 5005, L"NEW", 5003, 7, 0), kMany(5005, L"MANY", 5003, 40, 0);
const CVekArrayTempl<int> kMore{9, 8, 7, 6, 5, 4, 3, 2, 1};
const CVekDataItem kTree = sample();
const Polylines kPlate{shapes::rectangle(0, 0, 9, 9), shapes::circle(4, 4, 2)};
const VEK::CHatchProp kHatch(kUser, 0.3, 2.0, true), kOther(L"a pattern of a long name", 1.0, 1.0, false);
const CVekMatrix3d kStretch = CVekMatrix3d().setToScaling(3.0, {1, 1, 0});
const CVekMatrix3d kNarrow = CVekMatrix3d().setCoordSystem({}, {0.5, 0, 0}, {0, 1, 0}, {0, 0, 1}); // makes arcs chords
const CVekPoint3d kLow(0, 1, 0), kHigh(4, 1, 0), kFar(44, 44, 0), kNear(-11, -8, 0), kPoint(13, 13, 0);
const CVekColor kColor;

/// An object with one element, a bar with a row of holes, which refers to a definition with an outline.
inline CVekDataItem assembly()
{
    constexpr std::string_view kData = R"({"DEF": {"bar": {"TYPE": "EXTR", "BT": {"LEN": 90.0,
        "OUTLINE": {"CODE": 4, "PARMS": {"#1": 20.0, "#2": 30.0, "#3": 4.0}}}}}, "COMMON": {"LAYER": "a layer of some length"},
        "BT": {"e": {"REF": "bar", "BT": {"DRILL": {"a": {"D": 5.0, "N": 3, "STEP": {"@point": [0, 0, 20]},
        "ORG": {"@point": [0, 0, 20]}, "ZDIR": {"@point": [0, 1, 0]}}}}, "PARM": {"TEXT": "a parameter of some length"}}}})";
    CVekDataItem tree;
    CVekString error;
    EXPECT_TRUE(VEK::jsonRead(tree, kData.data(), kData.size(), L"", error));
    return tree;
}

inline CVekDataItem kAssembly = assembly();
const CVekString kElement(L"e");
const VEK::CUniqPointer<CVekDataItem> kMerged(VEK::bgr_data_merge(&kAssembly, kElement, nullptr));

inline bool walked(CVekDataItem& entry)
{
    CVekMapTempl<BgrBt, CVekDataItem> map;
    const bool good = vek_bgr_strong(&kAssembly, nullptr, CVekMatrix3d(), 1, nullptr, map) && map.len() == 1;
    if (good)
        entry = std::move(map.valueAt(0));
    return good;
}

/// Every kind of item, not sorted.
inline CVekGDX picture()
{
    CVekGDX gdx(kColor, kStretch, 0.0, 0, {}, {});
    gdx.imagePicture({1, 4}, 0, kBmp, 0, {1, 1, 0}, {9, 9, 0});
    gdx.imageVl({1, 2}, 0, arcs({0, 1, 1}), kColor, {}, kDashes, 1.0, 3, {});
    gdx.imageTxt(kText, 0, L"B", kColor, {}, L"CR", {1, 0, 0}, {});
    gdx.imageReg(kRegion, itemFill | itemHatch, kPlate, kColor, {}, {}, 1.0, 1, kColor, kHatch, {});
    gdx.imagePt(kLine, 0, {5, 5, 0}, kColor, {}, 4.0, 32, {});
    return gdx;
}

/// An outline of a kind whose third parameter may be negative, out of a library.
inline void choose(VEK::OutlineChoice& choice)
{
    static CVekDataItem library;
    VEK::OutlineChoice::Rows none;
    VEK::outlineData data;
    data.code = 12;
    data.parms = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0};
    EXPECT_TRUE(library.isDir() || VEK::outlineInit(&library));
    VEK::outlineMemory() = {};
    VEK::outlineMemory()[0][12] = {7.0, 8.0};
    choice.library = &library;
    EXPECT_TRUE(choice.take(data) && choice.load(12, none));
}

inline CVekDataItem holes()
{
    CVekDataItem item;
    VEK::dataSet(&item, L"HOLE\\A\\GEN", kPlate);
    VEK::dataSet(&item, L"LABEL", L"a label that fits into no buffer of its own");
    return item;
}

const CVek_Solid::Region kSection{VEK::g_outline(2, CVekVector3d(), {40.0, 20.0})};
const CVekString kLabel(L"\\de:eins\nzwei\\en:a text of some length"), kMessage(L"before \\KEY\\ behind"),
    kLocation(L"file:///a place that fits into no buffer of its own<topic>"), kTopic(L"a topic of some length"),
    kEntry(std::wstring(80, L'0').append(L"7 ").c_str());
const wchar_t* const kBuiltIn = L"built in";
const VEK::LabelRows kRows = VEK::labelRows(kLabel, nullptr, true);
const VEK::ValueWords kNoWords;
const VEK::EditField kField = {
    {.type = VEK::typeLength, .flags = VEK::valueBounded | VEK::valueSuppressZeros, .min = 20.0}, 1.0, kNoWords};
const CVekDataItem kHoles = holes();

/// One of each kind of object that jobs work on.
struct World {
    CVekString text = L"a.b", label = L"\\de:Riegel";
    CVekArrayTempl<int> numbers{1, 2, 3}, others{4, 5};
    CVekArrayTempl<CVekString> texts{L"one", L"two"}, parts{L"before"};
    CVekMapTempl<CVekString, CVekString> map, copied;
    CVekVertexArray polyline = arcs({0, 0, 1});
    CVekPoint3dArray points{{0, 0, 0}, {1, 1, 1}, {2, 0, 0}, {3, 1, 0}, {4, 5, 6}}, met;
    VEK::CSharedPointer<CVekString> shared;
    CVekDataItem tree = sample(), member = *kMerged;
    VEK::CUniqPointer<CVekDataItem> clone;
    CVekGDX gdx = picture(), sorted = gdx;
    std::uint64_t handed = 0; ///< what a job has handed out

    // Copies that a job gives away: one that it made itself where the memory ends would be another argument.
    CVekVertexArray given = shapes::path({shapes::line(-1, 1, 5, 1), shapes::line(5, 1, 9, 5, 0.5)});
    Polylines plate = kPlate;
    CVekLineParm pattern{0.5, -0.25};
    CVekArrayTempl<double> dashes = kDashes;
    CVekString keyword = kView, error;
    CVekColor named, color;

    // Where a job puts what it hands out.
    CVekArrayTempl<CVekDataKey> keys;
    CVekPoint3d low, high;
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    std::vector<unsigned char> bytes;
    VEK::CPixels pixels;
    VEK::CRecorder calls;
    VEK::CMemorySink sink;
    bool transparent = false;
    CVekArrayTempl<CVekVertexArrayEx> visible, hidden;
    CVekArrayTempl<VEK::CSharedPointer<CVekDataItem>> items;
    DrillList drills;
    CVek_Solid solid, block;
    CVekDataItem holeData = kHoles;
    CVekString active = L"A";
    VEK::OutlineChoice choice;
    VEK::OutlineChoice::Rows rows;

    World()
    {
        choose(choice);
        block.extrude(kSection, CVekMatrix3d::kIdentity, 0.0, 5.0, 1);
        VEK::dataSet(VEK::cfgMgrPtr()->tree(), L"*MSG*\\VEK_\\de\\KEY", L"a text that was there before");
        map[L"key"] = L"value";
        named.setNames(L"a name of some length that", L"no object holds inside");
        sorted.displListSort();
        gdxMapRemoveAt(1);
        VEK::setGdxImageFcn(kAnother, nullptr);
    }

    /// Notes what is handed out.
    template <class List>
    bool hand(const List& list)
    {
        Hash hash;
        for (const auto& element : list)
            hash << element;
        handed = list.begin() != list.end() ? hash.value() : 0;
        return handed != 0;
    }
    bool hand(int count) { return hand(std::span(&count, 1)); }
    bool hand(const VEK::CPixels& shown)
    {
        return hand(std::string_view(reinterpret_cast<const char*>(shown.data.data()), shown.data.size() * 4));
    }

    bool draw(VEK::CSurface& surface) { return VEK::gdxDraw(sorted, surface, 99, 99, VEK::screenRules); }

    /// Draws the picture into a file, whatever the pass tells.
    bool drawn(const std::unique_ptr<VEK::CFileSurface>& surface)
    {
        if (surface)
            draw(*surface);
        return surface && surface->finish() && hand(sink.bytes());
    }
    bool drawn(const std::unique_ptr<VEK::CSurface>& surface) { return surface && draw(*surface) && hand(pixels); }

    std::uint64_t state() const
    {
        Hash hash;
        hash << text << label << color.colorName() << color.bookName() << numbers << others << texts << polyline
             << points << (shared ? 1 : 0) << handed << active << block.bodies();
        for (const double parameter : choice.parms)
            hash << parameter;
        for (const double sign : choice.signs)
            hash << sign;
        for (const VEK::OutlineChoice::Row& row : rows)
            hash << row.label << row.value;
        const CVekDataItem* const outlines = VEK::cfg_get(L"*VEK_OUTLINE*");
        hash << choice.code << choice.rangeIndex << (outlines && outlines->getDir()->len() != VEK::outlineKinds)
             << *VEK::cfg_get(L"*MSG*\\VEK_\\de\\KEY")->peek<CVekString>();
        for (const auto* one : {&map, &copied}) {
            for (const auto& [key, value] : *one)
                hash << key << value;
        }
        for (const char c : jsonOf(tree) + jsonOf(member) + jsonOf(holeData) + (clone ? jsonOf(*clone) : ""))
            hash << c;
        for (const CVekGDX* one : {&gdx, &sorted, static_cast<const CVekGDX*>(getGdxFromMap(1))}) {
            CVekPoint3d min, max;
            hash << (one && one->extmaxGet(min, max)) << min << max;
            for (int i = 0; one && i < one->lenGet(); ++i)
                hash << one->getDisplayList()[i];
            for (int mode = 1; one && mode <= one->ColorTabLenGet(); ++mode)
                hash << one->colorTabGet(mode).bookName();
            if (one)
                hash << one->projMtxGet() << one->viewDirectionMtxGet();
        }
        return (hash << vek_gdx_image(kAnother, nullptr, nullptr, nullptr)).value();
    }
};

/// A job, which tells whether it is done or only changes something, and how many blocks of memory it seeks at least.
/// A hole pattern of a drill and a plate.
const VEK::CUniqPointer<VEK::CDtaFilePointer> kObject = [] {
    CVekDataItem object;
    VEK::dataSet(&object, L"BT\\post\\GEN", kPlate);
    VEK::dataSet(&object, L"BT\\drill\\GEN\\TYPE", L"DRILL");
    VEK::dataSet(&object, L"BT\\drill\\GEN\\D", 5.0);
    return VEK::CUniqPointer<VEK::CDtaFilePointer>(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &object));
}();

struct Job {
    const char* name;
    int least;
    std::function<std::optional<bool>(World&)> run;

    Job(const char* title, int blocks, bool (*job)(World&)) : name(title), least(blocks), run(job) {}
    Job(const char* title, int blocks, void (*job)(World&))
        : name(title), least(blocks), run([job](World& w) { return job(w), std::optional<bool>(); })
    {
    }
};

inline bool setByOwnKey(CVekDataItem& tree)
{
    const CVekDataKey own(5005, L"A", 5005, L"NEW", 5005, L"C", 0); // lost where the memory ends in it
    return VEK::dataItemSet(&tree, &own, 2.0);
}

inline bool opened(CVekDataItem& tree, CVekArrayTempl<CVekDataKey>& keys)
{
    VEK::CUniqPointer<VEK::CDtaFilePointer> copy(VEK::dtaOpen(6, 3, nullptr, &tree));
    return copy && copy->get(L"MANY", false) && copy->get(L"HATCH", false) && copy->dir(keys, nullptr);
}

inline bool fromChain(CVekDataItem& tree, resbuf* chain)
{
    return chain && tree.setData(chain, false);
}

inline bool readPatterns(CVekArrayTempl<VEK::CHatchPattern>& patterns, CVekString& error)
{
    constexpr std::string_view kFile = "*ONE, first\n45, 0,0, 0,1, 1,-1\n*TWO\n0, 0,0, 0,2\n";
    return VEK::hatchPatternsRead(patterns, kFile.data(), kFile.size(), L"p", error);
}

using W = World;
using CUniq = VEK::CUniqPointer<CVekDataItem>;
const Job kJobs[] = {
    {"text +=", 1, [](W& w) { w.text += L"and so much more that a new block is wanted for all of it"; }},
    {"text replace", 1, [](W& w) { w.text.replace(L".", L" a longer text that stands for a point "); }},
    {"text format", 1, [](W& w) { w.text.format(L"%s and %s", L"first", L"second"); }},
    {"array += itself", 1, [](W& w) { w.numbers += w.numbers; }},
    {"array += own element", 1, [](W& w) { w.others.append(w.others[0]); }},
    {"array = other", 1, [](W& w) { w.numbers = kMore; }},
    {"array += moved", 1, [](W& w) { w.numbers += std::move(w.others); }},
    {"array [far]", 1, [](W& w) { w.numbers[20] = 0; }},
    {"colour = named", 3, [](W& w) { w.color = w.named; }},
    {"map []", 2, [](W& w) { w.map[kAnother]; }},
    {"polyline += inclined", 1, [](W& w) { w.polyline += kUpright; }},
    {"polyline = inclined", 1, [](W& w) { w.polyline = kSlanted; }},
    {"polyline stretched", 1, [](W& w) { w.polyline.transformBy(kNarrow); }},
    {"polyline of points", 1, [](W& w) { w.polyline.fromPoints(w.points, true); }},
    {"shared pointer", 2, [](W& w) { w.shared = VEK::CSharedPointer<CVekString>(new CVekString(w.text)); }},
    {"map =", 2, [](W& w) { w.copied = w.map; }},

    {"pts", 1, [](W& w) { return w.hand(w.polyline.pts(true, 1e-3)); }},
    {"intersectWith", 1, [](W& w) { return w.polyline.intersectWith(w.met, kCross, 3) && w.hand(w.met); }},
    {"strTok", 4, [](W& w) { return VEK::strTok(w.parts, L"one two three", L" ", false) && w.hand(w.parts); }},
    {"implode", 1, [](W& w) { return w.hand(std::wstring_view(VEK::implode(w.texts, L", "))); }},
    {"toUtf8", 1, [](W& w) { return w.hand(VEK::toUtf8(L"a wide text of some length")); }},
    {"fromUtf8", 1, [](W& w) { return w.hand(std::wstring_view(VEK::fromUtf8("a narrow text of some length", 28))); }},
    {"atof", 1, [](W&) { return VEK::atof(L"12345678901234567890.5e-15") != 0.0; }},

    {"clone", 20, [](W& w) { return (w.clone = VEK::CUniqPointer<CVekDataItem>(w.tree.clone())) != nullptr; }},
    {"tree = branch", 4, [](W& w) { return (w.tree = *w.tree.getItem(L"REG")).kind() == VEK::DataKind::regions; }},
    {"dataSet", 3, [](W& w) { return VEK::dataSet(&w.tree, L"TEXT\\X\\Y", L"a leaf that becomes a directory"); }},
    {"dataItemSet", 3, [](W& w) { return VEK::dataItemSet(&w.tree, &kDeep, kUpright); }},
    {"dataItemSet, many", 1, [](W& w) { return VEK::dataItemSet(&w.tree, &kMany, 1.0); }},
    {"dataItemSet, own key", 3, [](W& w) { return setByOwnKey(w.tree); }},
    {"dataSetList", 2, [](W& w) { return VEK::dataSetList(&w.tree, L"A\\LIST", kUpright); }},
    {"dataSetList, empty", 1, [](W& w) { return VEK::dataSetList(&w.tree, L"LIST", CVekVertexArray()); }},
    {"resbuf chain", 30, [](W& w) { return fromChain(w.tree, w.tree.mkLisp()); }},
    {"insertCopy", 20, [](W& w) { return w.tree.getDir()->insertCopy(&kDeep, &kTree, true) != nullptr; }},
    {"dataGet", 3, [](W& w) { return VEK::dataGet(&w.tree, L"LIST", w.parts) && w.hand(w.parts); }},
    {"dtaOpen, dir", 6, [](W& w) { return opened(w.tree, w.keys) && w.hand(w.keys.len()); }},
    {"label_set", 2, [](W& w) { VEK::label_set(w.label, L"a mullion of some length", L"en"); }},
    {"hatchPatternsRead", 6, [](W& w) { return readPatterns(w.patterns, w.error) && w.hand(w.patterns.len()); }},

    {"vl_to_vll", 2, [](W& w) { return w.hand(VEK::vl_to_vll(w.given)); }},
    {"vl_measure", 8, [](W& w) { return w.hand(VEK::vl_measure(std::move(w.given), 1.0, std::move(w.pattern))); }},
    {"vl_split_dif", 1, [](W& w) { return w.hand(VEK::vl_split_dif(std::move(w.given), 0.01)); }},
    {"g_vl_expl", 1, [](W& w) { return w.hand(VEK::g_vl_expl(w.given, 5)); }},
    {"g_vl_cut", 1, [](W& w) { return w.hand(VEK::g_vl_cut(std::move(w.given), kLow, kHigh)); }},
    {"g_vl_proje", 1, [](W& w) { return w.hand(VEK::g_vl_proje_mtx_orig(std::move(w.given), kNarrow, 0.01)); }},
    {"vl_extmax", 1, [](W& w) { return w.hand(VEK::vl_extmax(w.given, 0.5)); }},
    {"vl_extrect", 1, [](W& w) { return w.hand(VEK::vl_extrect(w.given, 1.0)); }},
    {"vl_punch", 8, [](W& w) { return w.hand(VEK::vl_punch(std::move(w.given), w.plate[0], true)); }},
    {"vl_punch_reg", 8, [](W& w) { return w.hand(VEK::vl_punch_reg(std::move(w.given), w.plate, false)); }},
    {"g_vll_pt_inside", 5, [](W& w) { return VEK::g_vll_pt_inside(w.plate, kLow) == 1; }},
    {"vll_regions_prepare", 8, [](W& w) { return w.hand(VEK::vll_regions_prepare(w.plate)); }},
    {"g_vll_regions", 6, [](W& w) { return w.hand(VEK::g_vll_regions(w.plate, 4)); }},
    {"g_outline", 2, [](W& w) { return w.hand(VEK::g_outline(13, CVekPoint3d(1, 1, 0), kAngle)); }},

    {"outlineInit", 100, [](W& w) { return VEK::outlineInit(&w.tree); }},
    {"bent line", 8, [](W& w) { return w.hand(VEK::g_outline(27, CVekPoint3d(1, 1, 0), kAngle)); }},
    {"fsheet_vll_outline", 20,
     [](W& w) {
         static const CVekVertexArray low(CVekVertex({-50, -50, 0}, {50, -50, 0})),
             top(CVekVertex({-50, 50, 0}, {50, 50, 0}));
         static const VEK::Regions regions{kPlate};
         VEK::VertexArrays lines;
         return VEK::fsheet_vll_outline(&kTree, top, low, regions, lines) && w.hand(lines);
     }},
    {"vek_bgr_strong", 9, [](W& w) { return walked(w.tree); }},
    {"bgr_data_merge", 20,
     [](W& w) { return (w.clone = CUniq(VEK::bgr_data_merge(&kAssembly, kElement, nullptr))) != nullptr; }},
    {"objGen", 5, [](W& w) { return VEK::objGen(&w.member, 0); }},
    {"drills", 9,
     [](W& w) {
         return VEK::getExtrDrillData(w.drills, kMerged, kMerged->getItem(L"BT"), nullptr, kNarrow, kNarrow) &&
                w.hand(w.drills.len());
     }},
    {"getProjectedGeometry", 20,
     [](W& w) {
         return VEK::getProjectedGeometry(kMerged, kStretch, kStretch, nullptr, w.visible, w.hidden, w.items) &&
                w.hand(w.visible);
     }},
    {"objModel", 20, [](W& w) { return VEK::objModel(w.solid, kMerged) && w.hand(w.solid.bodies()); }},
    {"bgr_slx_bgr", 20,
     [](W& w) {
         return VEK::bgr_slx_bgr(w.solid, w.transparent, &kAssembly, nullptr, kNarrow, nullptr, false, true) &&
                w.hand(w.solid.bodies());
     }},
    {"extrude", 5,
     [](W& w) {
         return w.solid.extrude(kSection, CVekMatrix3d::kIdentity, 0.0, 5.0, 1) && w.hand(w.solid.bodies());
     }},
    {"drill", 5, [](W& w) { return w.block.drill(1, CVekMatrix3d::kIdentity, 6.0); }},
    {"add", 2, [](W& w) { return w.block.add(w.block, kNarrow, 2); }},
    {"project", 5,
     [](W& w) {
         w.visible.append(CVekVertexArrayEx()); // goes away whatever happens
         const bool done = w.block.project(kStretch, true, w.visible, w.hidden, vekModelerFaces);
         w.hand(w.visible);
         return done;
     }},

    {"glyph", 3, [](W& w) { return w.hand(get_ascii_from_map(L'B')); }},
    {"textRegions", 6, [](W& w) { return w.hand(VEK::textRegions(L"AB", L"CC", {})); }},
    {"region split", 2, [](W& w) { return w.hand(vek_gdx_image_reg_split(w.plate)); }},
    {"measure, runs", 5, [](W& w) { return vek_gdx_image_vl_measure(w.polyline, std::move(w.dashes), 0); }},
    {"measure, segments", 4, [](W& w) { return vek_gdx_image_vl_measure(w.polyline, std::move(w.dashes), 1); }},
    {"hatch lines", 9, [](W& w) { return w.hand(vek_gdx_image_reg_hatch(std::move(w.plate), {}, kUser, 1.0, 0.2)); }},
    {"hatch dots", 9, [](W& w) { return w.hand(vek_gdx_image_reg_hatch(std::move(w.plate), {}, kDots, 1.0, 0.0)); }},
    {"hatch pattern", 9, [](W& w) { return w.hand(vek_gdx_image_reg_hatch2(std::move(w.plate), {}, kHatch)); }},

    {"imagePt", 1, [](W& w) { w.gdx.imagePt(kNew, 0, kFar, kColor, kNarrow, 4.0, 32, kLow); }},
    {"imageVl", 4, [](W& w) { w.gdx.imageVl(kNew, 0, kUpright, kColor, kNarrow, kDashes, 1.0, 1, kLow); }},
    {"imageReg", 5,
     [](W& w) { w.gdx.imageReg(kNew, 3, kPlate, kColor, kNarrow, kDashes, 1, 1, kColor, kHatch, kLow); }},
    {"imagePicture", 3, [](W& w) { w.gdx.imagePicture(kNew, 0, kBmp, 0, kLow, kFar); }},
    {"imageTxt", 6, [](W& w) { w.gdx.imageTxt(kNew, 128, L"AB", kColor, kNarrow, L"CC", kFar, kLow); }},
    {"host text", 6, [](W& w) { return w.gdx.imageTxt(kNew, 0, &kTree, kColor, kNarrow, 1.0, kLow); }},
    {"addDisplayList", 9, [](W& w) { return w.gdx.addDisplayList(w.sorted.getDisplayList()); }},
    {"ColorTabSet", 2, [](W& w) { return w.gdx.ColorTabSet(9, w.named); }},
    {"propSet", 1, [](W& w) { return w.gdx.propSet(kRegion, propNoExt); }},
    {"redraw", 1, [](W& w) { return w.gdx.redraw(kRegion, propNoExt); }},
    {"hatchSet", 1, [](W& w) { return w.gdx.hatchSet(kRegion, kOther); }},
    {"mtxSet", 1, [](W& w) { return w.gdx.mtxSet(kRegion, kNarrow); }},
    {"txtSet", 6, [](W& w) { w.gdx.txtSet(kText, L"AB"); }},
    {"txtAlignSet", 3, [](W& w) { return w.gdx.txtAlignSet(kText, L"CC"); }},
    {"txtPointSet", 3, [](W& w) { w.gdx.txtPointSet(kText, kFar); }},
    {"removeItemStack", 1, [](W& w) { return w.gdx.removeItemStack(kRegion); }},
    {"projMtxSet", 1, [](W& w) { w.gdx.projMtxSet(kNarrow); }},
    {"viewDirectionSet", 1, [](W& w) { return w.gdx.viewDirectionSet(std::move(w.keyword)); }},
    {"extmaxGet", 1, [](W& w) { return w.gdx.extmaxGet(kLine, w.low, w.high) && w.hand(std::span(&w.low, 1)); }},
    {"StackToItemNr", 1, [](W& w) { return w.hand(w.gdx.StackToItemNr(kLine)); }},
    {"displListSort", 1, [](W& w) { w.gdx.displListSort(); }},
    {"imageItemGet", 1, [](W& w) { return w.sorted.imageItemGet(kNear) == 1; }},
    {"imageItemGet, not sorted", 1, [](W& w) { return w.gdx.imageItemGet(kPoint) == 1; }},
    {"gdxMapSetAt", 20, [](W& w) { gdxMapSetAt(1, w.gdx); }},
    {"createGdxInMap", 3, [](W&) { return createGdxInMap(&kTree) == 1; }},
    {"setGdxImageFcn", 2, [](W&) { VEK::setGdxImageFcn(kAnother, [](CVekGDX*, auto*, auto*) { return true; }); }},
    {"axes", 10, [](W& w) { return vek_gdx_image_ucs(&w.gdx, kNarrow); }},
    {"holes", 10, [](W& w) { return vek_gdx_image_hole(&w.gdx, kObject, nullptr); }},
    {"slide", 11, [](W& w) { return VEK::gdxImageSlide(&w.gdx, kSlideBytes, 0, &kTree); }},
    {"slide of a library", 18, [](W& w) { return vek_gdx_image_sld(&w.gdx, kSlide, kLibrary, 0, nullptr); }},
    {"slideLoad", 5, [](W& w) { return VEK::slideLoad(w.bytes, kSlide, kLibrary) && w.hand(w.bytes); }},

    {"picture of a file", 4, [](W& w) { return w.hand(VEK::loadPicture(kBmp, 0, 7, 3, w.transparent, 0)); }},
    {"recorder", 20, [](W& w) { return w.draw(w.calls) && w.hand(w.calls.text()); }},
    {"pixels", 20,
     [](W& w) { return VEK::rasterPixels(w.pixels, 99, 99, 0) && w.drawn(VEK::rasterSurface(w.pixels)); }},
    {"metafile", 20, [](W& w) { return w.drawn(VEK::emfSurface(w.sink)); }},
    {"SVG", 20, [](W& w) { return w.drawn(VEK::svgSurface(w.sink, 100, 100)); }},
    {"jsonLoad", 20, [](W& w) { return VEK::jsonLoad(w.tree, kTexts, w.error); }},

    {"outline, load", 1, [](W& w) { return w.choice.load(7, w.rows); }},
    {"outline, range", 1, [](W& w) { return w.choice.rangeSet(0); }},
    {"outline, sign", 1, [](W& w) { return w.choice.toggle(2, w.label); }},
    {"labelRows", 2,
     [](W& w) {
         const VEK::LabelRows rows = VEK::labelRows(kLabel, nullptr, true);
         return rows.len() > 0 && w.hand(std::wstring_view(rows[1].text));
     }},
    {"labelOfRows", 1, [](W& w) { return VEK::labelOfRows(w.text, kRows); }},
    {"textsLoad", 3, [](W& w) { return VEK::textsLoad(kTexts, w.error); }},
    {"msgCallBack", 1,
     [](W& w) {
         const wchar_t* shown = VEK::msgCallBack(kMessage, kBuiltIn, nullptr);
         return shown != kBuiltIn && w.hand(std::wstring_view(shown));
     }},
    {"helpPlanOfDialog", 2,
     [](W& w) {
         VEK::HelpPlan plan;
         const bool good = VEK::helpPlanOfDialog(plan, kLocation, kTopic);
         w.hand(std::wstring_view(plan.fallback));
         return good;
     }},
    {"editCheck", 1,
     [](W& w) {
         const VEK::EditCheck check = VEK::editCheck(kField, kEntry);
         const bool keeps = check.action == VEK::EditCheck::keep;
         return (keeps || w.hand(std::wstring_view(check.text))) && check.isRefused && check.bound == check.text;
     }},
    {"comboCheck", 1,
     [](W& w) {
         const VEK::ComboCheck check = VEK::comboCheck(kField.rules, kEntry);
         return check.isSet && w.hand(static_cast<int>(check.value));
     }},
    {"comboValue", 1,
     [](W& w) {
         double value = -1.0;
         const bool good = VEK::comboValue(kField.rules, kEntry, value);
         return (value == -1.0 || w.hand(static_cast<int>(value))) && good;
     }},
    {"matTree", 20,
     [](W& w) {
         VEK::MatTree tree;
         const bool made = VEK::matTree(tree, {}, {0, L"SHEET", {}, nullptr, std::wcscmp});
         const bool isEmpty = tree.nodes.len() == 0 && tree.selected == VEK::MatTreeNode::library;
         return (isEmpty || w.hand(tree.nodes.len() + tree.selected)) && made;
     }},
    {"holeDialog", 5, [](W& w) { return VEK::holeDialog(w.active, &w.holeData) == 1; }},
    {"holeDialog, the first", 100, [](W& w) {
         VEK::cfgMgrPtr()->tree()->remove(L"*VEK_OUTLINE*");
         return VEK::holeDialog(w.active, &w.holeData) == 1;
     }}};

} // namespace memory_test

// Every allocation fails in turn: what comes out is whole, or told as a failure with everything as it was.
#include "display_hash.h"
#include "failing_malloc.h"
#include "picture_bytes.h"
#include "shapes.h"
#include "slide_bytes.h"

#include <vek/json.h>
#include <vek/objects.h>
#include <vek/vek.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>

namespace
{

using display_test::Hash, shapes::Polylines;

CVekVertexArray arcs(const CVekVector3d& normal)
{
    CVekVertexArray polyline{{{0, 0, 0}, {1, 0, 0}, 0.5}, {{1, 0, 0}, {1, 1, 0}, -1.0}};
    polyline.setNormal(normal);
    return polyline;
}

/// A tree with every kind of leaf that owns memory, deep and broad.
CVekDataItem sample()
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

std::string jsonOf(const CVekDataItem& tree)
{
    std::string text;
    CVekString error;
    EXPECT_TRUE(VEK::jsonWrite(tree, text, L"", error));
    return text;
}

/// A folder of its own with a picture and a library of one slide.
struct Files {
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "vek_memory_test";
    slide_test::Bytes slide = slide_test::withWords(slide_test::littleHeader(),
                                                    {0xFF01, 10,     20, 30, 40,     0xFD00, 4,  0xFFFE, 0xFD00, 10,
                                                     10,     0xFD00, 30, 10, 0xFD00, 30,     30, 0xFD00, 0,      0xFFFE,
                                                     11,     21,     31, 41, 12,     22,     32, 42,     0xFC00});

    Files()
    {
        std::filesystem::create_directories(folder);
        using namespace picture_bytes;
        std::ofstream(folder / "a.bmp", std::ios::binary) << bmp(info(4, 4, 24), std::string(48, '\x40'));
        std::string library(32, ' ');
        library += "one" + std::string(29, '\0') + le(104, 4) + std::string(36, '\0');
        std::ofstream(folder / "a.slb", std::ios::binary) << library.append(slide.begin(), slide.end());
    }
    ~Files() { std::filesystem::remove_all(folder); }

    CVekString path(const char* name) const { return CVekString((folder / name).wstring().c_str()); }
    std::string read(const char* name) const
    {
        std::ifstream in(folder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
};
const Files kFiles;

const CVekGDX::Stack kLine{1}, kText{2}, kRegion{3}, kNew{7, 8, 9};
const CVekString kBmp = kFiles.path("a.bmp"), kLibrary = kFiles.path("a.slb");
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
CVekDataItem assembly()
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

CVekDataItem kAssembly = assembly();
const CVekString kElement(L"e");
const VEK::CUniqPointer<CVekDataItem> kMerged(VEK::bgr_data_merge(&kAssembly, kElement, nullptr));

bool walked(CVekDataItem& entry)
{
    CVekMapTempl<BgrBt, CVekDataItem> map;
    const bool good = vek_bgr_strong(&kAssembly, nullptr, CVekMatrix3d(), 1, nullptr, map) && map.len() == 1;
    if (good)
        entry = std::move(map.valueAt(0));
    return good;
}

/// Every kind of item, not sorted.
CVekGDX picture()
{
    CVekGDX gdx(kColor, kStretch, 0.0, 0, {}, {});
    gdx.imagePicture({1, 4}, 0, kBmp, 0, {1, 1, 0}, {9, 9, 0});
    gdx.imageVl({1, 2}, 0, arcs({0, 1, 1}), kColor, {}, kDashes, 1.0, 3, {});
    gdx.imageTxt(kText, 0, L"B", kColor, {}, L"CR", {1, 0, 0}, {});
    gdx.imageReg(kRegion, itemFill | itemHatch, kPlate, kColor, {}, {}, 1.0, 1, kColor, kHatch, {});
    gdx.imagePt(kLine, 0, {5, 5, 0}, kColor, {}, 4.0, 32, {});
    return gdx;
}

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
    CVek_Solid solid;

    World()
    {
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
             << points << (shared ? 1 : 0) << handed;
        for (const auto* one : {&map, &copied}) {
            for (const auto& [key, value] : *one)
                hash << key << value;
        }
        for (const char c : ::jsonOf(tree) + ::jsonOf(member) + (clone ? ::jsonOf(*clone) : ""))
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

bool setByOwnKey(CVekDataItem& tree)
{
    const CVekDataKey own(5005, L"A", 5005, L"NEW", 5005, L"C", 0); // lost where the memory ends in it
    return VEK::dataItemSet(&tree, &own, 2.0);
}

bool opened(CVekDataItem& tree, CVekArrayTempl<CVekDataKey>& keys)
{
    VEK::CUniqPointer<VEK::CDtaFilePointer> copy(VEK::dtaOpen(6, 3, nullptr, &tree));
    return copy && copy->get(L"MANY", false) && copy->get(L"HATCH", false) && copy->dir(keys, nullptr);
}

bool fromChain(CVekDataItem& tree, resbuf* chain)
{
    return chain && tree.setData(chain, false);
}

bool readPatterns(CVekArrayTempl<VEK::CHatchPattern>& patterns, CVekString& error)
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
    {"slide", 11, [](W& w) { return VEK::gdxImageSlide(&w.gdx, kFiles.slide, 0, &kTree); }},
    {"slide of a library", 18, [](W& w) { return vek_gdx_image_sld(&w.gdx, kSlide, kLibrary, 0, nullptr); }},
    {"slideLoad", 5, [](W& w) { return VEK::slideLoad(w.bytes, kSlide, kLibrary) && w.hand(w.bytes); }},

    {"picture of a file", 4, [](W& w) { return w.hand(VEK::loadPicture(kBmp, 0, 7, 3, w.transparent, 0)); }},
    {"recorder", 20, [](W& w) { return w.draw(w.calls) && w.hand(w.calls.text()); }},
    {"pixels", 20,
     [](W& w) { return VEK::rasterPixels(w.pixels, 99, 99, 0) && w.drawn(VEK::rasterSurface(w.pixels)); }},
    {"metafile", 20, [](W& w) { return w.drawn(VEK::emfSurface(w.sink)); }},
    {"SVG", 20, [](W& w) { return w.drawn(VEK::svgSurface(w.sink, 100, 100)); }}};

} // namespace

TEST(Memory, GlyphsThatTheFirstLookupDoesNotGetAreThereAtTheNext)
{
    FailingMemory memory(100, false);
    memory.during([] { return get_ascii_from_map(L'B').len(); });
    EXPECT_EQ(get_ascii_from_map(L'B').len(), 1);
    EXPECT_EQ(get_ascii_from_map(0xFC).len(), 3); // the last of all: a letter and its two dots
}

TEST(Memory, EachJobIsDoneAsAWholeOrNotAtAll)
{
    static CVekLocalApp host;
    host.functionSet(L"vek_text_to_regl", [](resbuf*, VEK::CUniqResbuf& result) {
        result.append(VEK::mkResbuf(VEK::Regions{kPlate}));
        return 5100;
    });
    CVekApp* const before = vekAppSet(&host);
    for (const Job& job : kJobs) {
        SCOPED_TRACE(job.name);
        World changed;
        const std::uint64_t old = changed.state();
        EXPECT_TRUE(job.run(changed).value_or(true));
        const std::uint64_t fresh = changed.state();
        const int failures = FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            World w;
            const unsigned long shortages = VEK::memoryShortages();
            const std::optional<bool> done = memory.during([&] { return job.run(w); });
            const bool counts = VEK::memoryShortages() != shortages;
            const std::uint64_t now = w.state();
            EXPECT_EQ(now, done.value_or(now == fresh) ? fresh : old);
            EXPECT_TRUE(done.value_or(now == fresh) || (memory.failed() && counts));
        });
        EXPECT_GE(failures, job.least);
    }
    vekAppSet(before);
}

TEST(Memory, APaintAgainTakesNoneForItemsVerticesAndLines)
{
    using Emit = std::function<void(CVekGDX&, const CVekMatrix3d&, int)>;
    const CVekVertexArray steps = shapes::path({shapes::line(0, 0, 4, 4), shapes::line(4, 4, 8, 0)});
    const std::pair<const char*, Emit> kinds[] = {
        {"lines", [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imageVl({i}, 0, steps, kColor, m, {}, 1, 1, {}); }},
        {"wide gaps",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             g.imageVl({i}, 0, shapes::path({steps[0], steps[0], steps[1]}), kColor, m, {}, 1, 4, {});
         }},
        {"dashes",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             g.imageVl({i}, 0, steps, kColor, m, {1.0, -0.5, 0.0, -0.5}, 1, 1, {});
         }},
        {"arcs",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imageVl({i}, 0, kUpright, kColor, m, {}, 1, 1, {}); }},
        {"points", [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imagePt({i}, 0, {}, kColor, m, 4, 34, {}); }},
        {"texts", [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imageTxt({i}, 0, L"AO", kColor, m, L"", {}, {}); }},
        {"fills",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             g.imageReg({i}, itemFill | itemOutline, kPlate, kColor, m, {}, 1, 1, kColor, kHatch, {});
         }},
        {"hatches", [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             const double pitch = i < 20 ? 2.0 : 0.2; // so that the longer list has more lines to a hatch as well
             g.imageReg({i}, itemHatch, kPlate, kColor, m, {}, 1, 1, kColor, {kUser, 0.5, pitch, true}, {});
         }}};
    for (const auto& [kind, emit] : kinds) {
        for (const wchar_t* view : {L"P", L"SO"}) {
            long taken[2];
            for (const int count : {20, 200}) {
                CVekGDX gdx(kColor, {}, 0.0, 0, {}, {});
                CVekMatrix3d m;
                for (int i = 0; i < count; ++i)
                    emit(gdx, m.setToTranslation({1.0 * (i % 7), 2.0, 0.0}), i);
                ASSERT_TRUE(gdx.viewDirectionSet(view));
                VEK::CPixels pixels;
                ASSERT_TRUE(VEK::rasterPixels(pixels, 20, 20, 0));
                const auto surface = VEK::rasterSurface(pixels);
                const auto paint = [&] { ASSERT_TRUE(VEK::gdxDraw(gdx, *surface, 20, 20, VEK::screenRules)); };
                paint();
                taken[count > 20] = FailingMemory::allocations(paint);
            }
            EXPECT_LE(taken[1], taken[0] + 20) << kind << ' ' << static_cast<char>(view[0]); // of longer buffers
        }
    }
}

TEST(Memory, LinesOfAListInUseAgainSeekNone)
{
    CVekGDX gdx(kColor, kStretch, 0.0, 0, {}, {});
    const auto emit = [&] {
        for (int i = 0; i < 100; ++i)
            gdx.imageVl(kLine, 0, kCross, kColor, {}, {}, 1.0, 0, {});
    };
    emit();
    gdx.clear();
    FailingMemory memory(0, true);
    memory.during([&] { emit(); });
    EXPECT_TRUE(!memory.failed() && gdx.lenGet() == 100);
}

TEST(Memory, ASolidIsBuiltDrilledAndProjectedAsAWholeOrNotAtAll)
{
    const CVek_Solid::Region region{VEK::g_outline(2, CVekVector3d(), {40.0, 20.0})};
    const CVekMatrix3d axis = CVekMatrix3d().setToTranslation({10.0, 0.0, 0.0});
    int views = 0;
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        CVekArrayTempl<CVekVertexArrayEx> visible, hidden;
        visible.append(CVekVertexArrayEx());
        CVek_Solid solid;
        bool built = false, drilled = false, added = false, projected = false;
        memory.during([&] {
            built = solid.extrude(region, CVekMatrix3d::kIdentity, 0.0, 5.0, 1);
            drilled = solid.drill(1, axis, 6.0);
            added = solid.add(solid, axis, 2);
            projected = solid.project(VEK::g_mtx_view_dir(L"NO", {}).inverse(), true, visible, hidden, vekModelerFaces);
        });
        EXPECT_EQ(solid.bodies(), built + added);
        EXPECT_EQ(visible.len() > 0, projected);
        EXPECT_EQ(hidden.len() > 0, projected);
        EXPECT_TRUE(memory.failed() || (built && drilled && added && projected));
        views += projected;
    });
    EXPECT_GT(views, 10); // what fails earlier leaves less to see, but a picture of it
}

TEST(Memory, ACacheKeepsNoFailure)
{
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        VEK::CPictureCache cache;
        const VEK::PictureRequest request{.name = kBmp};
        const bool had = memory.during([&] { return cache.picture(request) != nullptr; });
        EXPECT_TRUE(had || memory.failed());
        EXPECT_TRUE(cache.picture(request));
    });
}

TEST(Memory, FilesAreWrittenAsAWhole)
{
    const CVekDataItem& old = kTree;
    CVekDataItem fresh = kTree;
    VEK::dataSet(&fresh, L"TEXT", L"another text");
    CVekGDX gdx = picture();
    const CVekString path = kFiles.path("tree.json");
    CVekString error;
    const std::function<void()> jobs[] = {[&] { refresh(&gdx, path, 100, 100); },
                                          [&] { VEK::jsonSave(fresh, path, error); }};
    for (const auto& job : jobs) {
        job();
        const std::string whole = kFiles.read("tree.json");
        EXPECT_NE(whole, jsonOf(old));
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            ASSERT_TRUE(VEK::jsonSave(old, path, error));
            memory.during(job);
            const std::string now = kFiles.read("tree.json");
            EXPECT_TRUE(now == whole || (now == jsonOf(old) && memory.failed()));
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kFiles.folder), {}), 3) << "beside it";
        });
    }
    ASSERT_TRUE(VEK::jsonSave(fresh, path, error));
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        CVekDataItem tree(old);
        const bool done = memory.during([&] { return VEK::jsonLoad(tree, path, error); });
        EXPECT_TRUE(done || memory.failed());
        EXPECT_EQ(jsonOf(tree), jsonOf(done ? fresh : old));
    });
}

TEST(Memory, OutlinesAndLabelsInDialogsAreWholeOrAsBefore)
{
    CVekDataItem library;
    ASSERT_TRUE(VEK::outlineInit(&library));
    VEK::outlineData data;
    data.code = 12; // its third parameter may be negative
    data.parms = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0};
    using Choice = VEK::OutlineChoice;
    const std::function<bool(Choice&, Choice::Rows&)> jobs[] = {
        [](Choice& choice, Choice::Rows& rows) { return choice.load(7, rows); },
        [](Choice& choice, Choice::Rows&) { return choice.rangeSet(0); },
        [](Choice& choice, Choice::Rows& rows) { return choice.toggle(2, rows[0].label); },
    };
    for (const auto& job : jobs) {
        std::vector<double> state[2];
        const auto check = [&](FailingMemory& memory) {
            VEK::outlineMemory() = {};
            VEK::outlineMemory()[0][12] = {7.0, 8.0};
            Choice choice;
            Choice::Rows rows, none;
            choice.library = &library;
            ASSERT_TRUE(choice.take(data) && choice.load(12, none) && rows.reserve(1));
            const bool done = memory.during([&] { return job(choice, rows); });
            std::vector<double> now(choice.parms.begin(), choice.parms.end());
            now.insert(now.end(), choice.signs.begin(), choice.signs.end());
            now.insert(now.end(), {double(choice.code), double(choice.rangeIndex)});
            for (const Choice::Row& row : rows)
                now.insert(now.end(), {double(row.label.len()), double(row.words.len()), row.value});
            EXPECT_TRUE(done || memory.failed());
            state[done] = state[done].empty() ? now : state[done];
            EXPECT_EQ(now, state[done]) << done;
        };
        EXPECT_GT(FailingMemory::forEveryAllocation(check), 0);
    }
    const CVekString label(L"\\de:eins\nzwei\\en:a text of some length");
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        VEK::LabelRows rows = memory.during([&] { return VEK::labelRows(label, nullptr, true); });
        EXPECT_TRUE(rows.len() == 0 ? memory.failed() : rows[1].text == L"a text of some length");
    });
    const VEK::LabelRows rows = VEK::labelRows(label, nullptr, true);
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        CVekString made(L"before");
        const bool done = memory.during([&] { return VEK::labelOfRows(made, rows); });
        EXPECT_TRUE(done ? made == label : made == L"before" && memory.failed());
    });
}

TEST(Memory, TextsAndHelpAreWholeOrBuiltIn)
{
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    CVekString error;
    CVekDataItem file;
    const CVekString path = kFiles.path("tree.json"), text(std::wstring(40, L'x').c_str());
    VEK::dataSet(&file, L"*MSG*\\VEK_\\de\\KEY", text);
    ASSERT_TRUE(VEK::jsonSave(file, path, error));
    const CVekString decorated = L"before " + text + L" behind";
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        VEK::cfgMgrPtr()->tree()->remove(L"*MSG*");
        const bool loaded = memory.during([&] { return VEK::textsLoad(path, error); });
        EXPECT_EQ(VEK::cfg_get(L"*MSG*\\VEK_\\de\\KEY") != nullptr, loaded);
        EXPECT_TRUE(loaded || memory.failed());
    });
    VEK::textsLoad(path, error);
    const wchar_t* builtIn = L"built in";
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        const wchar_t* shown =
            memory.during([&] { return VEK::msgCallBack(L"before \\KEY\\ behind", builtIn, nullptr); });
        EXPECT_TRUE(decorated == shown || (shown == builtIn && memory.failed()));
    });
    const CVekString location = L"file:///" + text + L"<topic>";
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        VEK::HelpPlan plan;
        const bool good =
            memory.during([&] { return VEK::helpPlanOfDialog(plan, location, L"a topic of some length"); });
        EXPECT_TRUE(good || memory.failed());
        EXPECT_STREQ(plan.fallback, good ? L"file:///" + text + L"index" : CVekString());
    });
}

TEST(Memory, AFieldKeepsItsTextOrIsJudgedWhole)
{
    const VEK::ValueWords none;
    const VEK::EditField field = {
        {.type = VEK::typeLength, .flags = VEK::valueBounded | VEK::valueSuppressZeros, .min = 20.0}, 1.0, none};
    const CVekString entry = CVekString(L"  ") + std::wstring(80, L'0').c_str() + L"7 ";
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        double value = -1.0;
        const auto [check, combo, good] = memory.during([&] {
            return std::tuple(VEK::editCheck(field, entry), VEK::comboCheck(field.rules, entry),
                              VEK::comboValue(field.rules, entry, value));
        });
        EXPECT_TRUE(check.isRefused ? check.value == 20.0 && check.text == L"20" && check.bound == L"20"
                                    : check.action == VEK::EditCheck::keep && memory.failed());
        EXPECT_TRUE(combo.isSet ? combo.value == 20.0 : memory.failed());
        EXPECT_EQ(value, good ? 7.0 : -1.0);
    });
}

TEST(Memory, MaterialsAndHolesAreWholeOrAsTheyWere)
{
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    VEK::dataSet(VEK::cfg_dir_make(L"*MAT*"), L"ALU\\SUBS", CVekArrayTempl<CVekString>{L"SHEET", L"PROFILE"});
    const auto order = [](const wchar_t* a, const wchar_t* b) { return std::wcscmp(a, b); };
    const int failures = FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        VEK::MatTree tree;
        const bool made = memory.during([&] { return VEK::matTree(tree, {}, {0, L"SHEET", {}, nullptr, order}); });
        EXPECT_TRUE(made || memory.failed());
        EXPECT_EQ(tree.nodes.len(), made ? 3 : 0);
        EXPECT_EQ(tree.selected, made ? 2 : VEK::MatTreeNode::library);
    });
    EXPECT_GT(failures, 20);

    CVekLocalApp host;
    host.functionSet(L"mra_hole_dial", [](resbuf*, VEK::CUniqResbuf& result) {
        result = VEK::CUniqResbuf(VEK::mkResbuf(1, VEK::rbShort));
        return VEK::kHostNormal;
    });
    CVekApp* const before = vekAppSet(&host);
    CVekDataItem given;
    VEK::dataSet(&given, L"HOLE\\A\\GEN", kPlate);
    VEK::dataSet(&given, L"LABEL", L"a label that fits into no buffer of its own");
    CVekString active(L"A");
    CVekDataItem edited = given;
    ASSERT_EQ(VEK::holeDialog(active, &edited), 1);
    EXPECT_NE(jsonOf(edited), jsonOf(given));
    for (const wchar_t* missing : {L"nothing", L"*VEK_OUTLINE*"}) {
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            CVekDataItem data = given;
            VEK::cfgMgrPtr()->tree()->remove(missing);
            const int result = memory.during([&] { return VEK::holeDialog(active, &data); });
            EXPECT_TRUE(result == 1 || memory.failed());
            EXPECT_EQ(jsonOf(data), jsonOf(result == 1 ? edited : given));
            EXPECT_STREQ(active, L"A");
            const CVekDataItem* const outlines = VEK::cfg_get(L"*VEK_OUTLINE*");
            EXPECT_TRUE(!outlines || outlines->getDir()->len() == VEK::outlineKinds);
        });
    }
    vekAppSet(before);
}

// The generators by their rules: what they ask of the object services and of the host, and what they make of it.
#include "images_services.h"

#include "shapes.h"

#include <vek/images.h>

#include <gtest/gtest.h>

namespace
{

using VEK::dataSet;

constexpr int kModes[] = {-1, 0, 1, 2, 3, 15, 16, 17};

double num(double x)
{
    return std::round(x * 1e4) / 1e4 + 0.0;
}

std::string places(const CVekVertexArray& vl, const CVekMatrix3d& m)
{
    std::ostringstream text;
    for (const CVekVertex& v : vl) {
        const CVekPoint3d a = v.start * m, b = v.end * m;
        text << '(' << num(a[0]) << ',' << num(a[1]) << '>' << num(b[0]) << ',' << num(b[1]) << ')';
    }
    return text.str();
}

/// An item by all that is not as for every item of a generator.
std::string told(const CVekDisplayItem& item)
{
    std::ostringstream text;
    const bool isPoint = item.type == dispPoint;
    text << item.type << ':' << item.flag << ':' << item.color.colorIndex() << ':';
    if (isPoint)
        text << '(' << num(item.point[0]) << ',' << num(item.point[1]) << ')';
    text << (item.type == dispPolyline ? places(item.vl, item.mtx) : "");
    for (const CVekVertexArray& contour : item.reg)
        text << places(contour, item.mtx);
    if (item.type == dispRegion)
        text << item.fcolor.colorIndex() << narrow(item.hatch.name) << num(item.hatch.scale) << num(item.hatch.angle);
    if (item.type == dispText)
        text << places(item.regl[0][0], item.mtx);
    for (int i = 0; i < item.stack.len(); ++i)
        text << 's' << item.stack[i];
    if (item.thickn != 0)
        text << 't' << item.thickn;
    if (isPoint && (item.pdSize != 0.0 || item.pdMode != 0xFFFFFFFF))
        text << 'p' << item.pdSize << ',' << item.pdMode;
    const bool isPlain = item.linetype.len() == 1 && item.linetype[0] == 1.0 && item.ltscale == 1.0;
    if ((!isPlain && (item.type == dispPolyline || item.type == dispRegion)) ||
        (isPoint && !(item.mtx == CVekMatrix3d())))
        text << "!";
    return text.str() + ' ';
}

std::string itemsOf(const CVekGDX& gdx)
{
    std::string text;
    for (const CVekDisplayItem& item : gdx.getDisplayList())
        text += told(item);
    return text;
}

std::string lines(unsigned flag, int color, double x, double y)
{
    std::ostringstream text;
    for (int i = 0; i < script.lines; ++i)
        text << "1:" << flag << ':' << color << ":(" << x << ',' << y + i << '>' << x + 1 << ',' << y + i << ") ";
    return text.str();
}

unsigned flagOf(int mode)
{
    return mode <= 15 ? static_cast<unsigned>(mode & 15) * 256 : 0;
}

struct Host : CVekApp {
    int defaultUnit() override { return 2; }
    unsigned long backgroundColor() override { return 0; }
    bool imageObject(CVekGDX*, CVekDataItem* object, CVekDataItem* parameters) override
    {
        CVekArrayTempl<int> stack;
        VEK::dataGet(parameters, L"STACK", stack);
        called("host", keysOf(object), keysOf(parameters), stack.len() > 0 ? stack[-1] : 0);
        return draws;
    }
    void hatchPatternGet(const wchar_t*, VekPatternLines&) override {}
    void viewMatrix(const wchar_t*, CVekMatrix3d&) override {}
    bool namedDataObject(VEK::CAdsName& name, const wchar_t* kind, bool create) override
    {
        name = VEK::CAdsName(1, 0);
        return holes && create && CVekString(kind) == L"HOLE";
    }
    VEK::CSharedPointer<CVekDataItem> dataObject(const VEK::CAdsName&) override { return holes; }
    int callFunction(const wchar_t* name, resbuf* arguments, VEK::CUniqResbuf& result) override
    {
        if (CVekString(name) == L"vek_text_to_regl") {
            CVekDataItem text;
            EXPECT_TRUE(VEK::fromRb(text, arguments, 0));
            called("text", keysOf(&text), arguments->resval.rreal);
            result = VEK::CUniqResbuf(VEK::mkResbuf(VEK::Regions{{lineAt(0, 0)}}));
            return VEK::kHostNormal;
        }
        CVekDataItem object, wish;
        const int key = arguments->resval.rlong;
        arguments = arguments->rbnext;
        EXPECT_TRUE(VEK::fromRb(object, arguments, 0) && VEK::fromRb(wish, arguments, 0) && !arguments);
        called(narrow(name), key, keysOf(&object), keysOf(&wish));
        if (draws)
            getGdxFromMap(key)->imageVl({}, 0, lineAt(0, 0), {}, moved(4), {}, 1.0, 0, {});
        return VEK::kHostError; // of which nothing depends
    }

    bool draws = true;
    VEK::CSharedPointer<CVekDataItem> holes;
};

class Images : public testing::Test
{
protected:
    Images()
    {
        script = Script();
        vekAppSet(&host);
        backup.attach(nullptr);
    }
    ~Images() override
    {
        vekAppSet(nullptr);
        CVekVector3d::tol = 1e-10;
    }

    using File = VEK::CUniqPointer<VEK::CDtaFilePointer>;
    static File file(const CVekDataItem& item) { return File(VEK::dtaOpen(6, 3, nullptr, &item)); }

    /// The items of a generator, and in `script.calls` its calls.
    template <class Generator, class... Arguments>
    std::string drawn(Generator generator, Arguments&&... arguments)
    {
        gdx.clear();
        script.calls.clear();
        result = generator(&gdx, std::forward<Arguments>(arguments)...);
        return itemsOf(gdx);
    }

    static CVekDataItem element(const wchar_t* type, double x = 0.0)
    {
        CVekDataItem item;
        dataSet(&item, L"TYPE", type);
        dataSet(&item, L"LAYER", L"11");
        dataSet(&item, L"LAYER_H", L"12");
        dataSet(&item, L"BT\\LAYER", L"13");
        dataSet(&item, L"BT\\LAYER_H", L"14");
        dataSet(&item, L"X", x);
        return item;
    }

    Host host;
    VEK::CCfgBackup backup{true};
    CVekGDX gdx;
    bool result = false;
};

using FileGenerator = bool (*)(CVekGDX*, VEK::CDtaFilePointer*, VEK::CDtaFilePointer*);
constexpr FileGenerator kAssembly = vek_gdx_image_bgr;

using ElementGenerator = bool (*)(CVekGDX*, CVekDataItem*, CVekMatrix3d&, const CVekMatrix3d&, CVekDataItem*);
constexpr ElementGenerator kElements[] = {
    vek_gdx_image_bgr_bt,    vek_gdx_image_bgr_rot,   vek_gdx_image_bgr_angle, vek_gdx_image_bgr_extr,
    vek_gdx_image_bgr_path,  vek_gdx_image_bgr_hatch, vek_gdx_image_bgr_nm,    vek_gdx_image_bgr_compound,
    vek_gdx_image_bgr_drill, vek_gdx_image_bgr_scord, vek_gdx_image_bgr_edge,  vek_gdx_image_bgr_edge_n,
    vek_gdx_image_bgr_sheet,
};

} // namespace

TEST_F(Images, NothingIsDrawnOfNothing)
{
    CVekMatrix3d m;
    CVekDataItem leaf, dir(CVekDataItem::directory);
    const File empty = file(dir), none;
    for (const ElementGenerator generator : kElements) {
        for (int bad = 0; bad < 5; ++bad)
            EXPECT_FALSE(generator(bad == 0 ? nullptr : &gdx,
                                   bad == 1   ? nullptr
                                   : bad == 2 ? &leaf
                                              : &dir,
                                   m, m,
                                   bad == 3   ? nullptr
                                   : bad == 4 ? &leaf
                                              : &dir));
    }
    EXPECT_FALSE(vek_gdx_image_bgr_slice(nullptr, m, m, &dir) || vek_gdx_image_bgr_slice(&gdx, m, m, nullptr) ||
                 vek_gdx_image_bgr_slice(&gdx, m, m, &leaf));
    for (int bad = 0; bad < 5; ++bad)
        EXPECT_FALSE(vek_gdx_image_bgr(bad == 0 ? nullptr : &gdx, bad == 1 ? nullptr : &dir, bad == 2 ? nullptr : &leaf,
                                       m, m,
                                       bad == 3   ? nullptr
                                       : bad == 4 ? &leaf
                                                  : &dir,
                                       1.0, 0.0));
    EXPECT_FALSE(vek_gdx_image_ucs(nullptr, m) || vek_wall_edit_image(nullptr, empty));
    struct Row {
        FileGenerator generator;
        bool noObject, empty, noParams; ///< what comes of it
    };
    for (const Row& row : {Row{kAssembly, false, true, true},
                           {vek_gdx_image_bar_surface, false, false, false},
                           {vek_gdx_image_fsheet, false, false, false},
                           {vek_gdx_image_hole, true, true, true},
                           {vek_gdx_image_drill, true, true, true}}) {
        EXPECT_FALSE(row.generator(nullptr, empty, empty));
        EXPECT_EQ(row.generator(&gdx, none, empty), row.noObject);
        EXPECT_EQ(row.generator(&gdx, empty, empty), row.empty);
        EXPECT_EQ(row.generator(&gdx, empty, none), row.noParams);
    }
    EXPECT_EQ(gdx.lenGet(), 0);
}

TEST_F(Images, AssemblyDrawsEachElementInItsMode)
{
    int cases = 0;
    for (int bits = 0; bits < 8 * 8; ++bits, ++cases) {
        const int mode = kModes[bits / 8];
        const bool coord = bits & 1, hasActive = bits & 2, several = bits & 4;
        script.names = {"b"};
        if (several)
            script.names = {"a", "b", "bare", "lost"};
        CVekDataItem object, params;
        for (const wchar_t* name : {L"a", L"b", L"bare"})
            *object.makeItem(CVekString(L"BT\\") + name) =
                element(name[1] ? L"UNKNOWN" : L"ROT", name[0] == L'a' ? 10 : 20);
        dataSet(&params, L"CMODE", mode);
        dataSet(&params, L"COORD", coord);
        dataSet(&params, L"MTX", moved(500));
        dataSet(&params, L"BGR_STAT", 7);
        dataSet(&params, L"GEN_STAT", -1);
        if (hasActive)
            dataSet(&params, L"ACT", L"b");
        std::string expected = coord ? "2:1024:-1:(0,0) " : "";
        double aux = 0.0;
        for (const std::string& name : script.names) {
            const double x = 500 + (name == "a" ? 10 : 20) + (aux += 1000);
            if (name == "bare" || name == "lost")
                continue;
            if (coord && mode == 1 && (!several || (hasActive && name == "b")))
                expected += "2:256:-1:(" + std::to_string(static_cast<int>(x)) + ",5) ";
            expected += lines(flagOf(mode), 11, x, 0) + (mode == 1 ? lines(1280, -1, x, 100) : "");
        }
        EXPECT_EQ(drawn(kAssembly, file(object), file(params)), expected);
        EXPECT_TRUE(result);
        const std::string m = mode ? ",CMODE=" + std::to_string(mode) : "", act = hasActive ? ",ACT=b" : "";
        const std::string parm = (act + m + (coord ? ",COORD=1" : "") + ",MTX=500}").substr(1);
        EXPECT_EQ(script.calls.rfind("strong1{BGR_STAT=7}{" + parm, 0), 0u) << script.calls;
        const std::string own = (act + m + ",DEFUNIT=6,INSUNIT=2,MTX=" + (several ? "1510" : "1520") + "} ").substr(1);
        EXPECT_NE(script.calls.find("LAYER_H=12,TYPE=ROT,X=" + std::string(several ? "10" : "20") + "}{" + own),
                  std::string::npos)
            << script.calls;
    }
    EXPECT_EQ(cases, 64);
}

TEST_F(Images, AssemblyAsOneSolidHasNoHiddenLinesAndNoAxes)
{
    for (int bits = 0; bits < 8 * 8; ++bits) {
        const int mode = kModes[bits / 8];
        script.hasSolid = bits & 1;
        script.projects = bits & 2;
        CVekDataItem object(CVekDataItem::directory), params;
        dataSet(&params, L"FULL", true);
        dataSet(&params, L"UCS", 1);
        dataSet(&params, L"VIEW", L"E");
        dataSet(&params, L"CMODE", mode);
        dataSet(&params, L"COORD", (bits & 4) != 0);
        const std::string expected = (bits & 4 ? "2:1024:-1:(0,0) " : "") +
                                     (script.hasSolid ? lines(static_cast<unsigned>(mode & 15) * 256, -1, 1, 0) : "");
        EXPECT_EQ(drawn(kAssembly, file(object), file(params)), expected);
        EXPECT_EQ(result, script.hasSolid && script.projects);
        // From the side of +x, world z up: the view's z is x, its x is y.
        EXPECT_EQ(script.calls,
                  std::string("slx{}1101 ") + (script.hasSolid ? "solid project100,0;0,100;0,0;11 " : ""));
    }
}

TEST_F(Images, ElementsAreDrawnByTheirType)
{
    enum Drills { never, ortho, always, part, list };
    struct Row {
        const wchar_t *type, *construction;
        const char* drills; ///< what is asked for them
        Drills when;
        int color, hidden;
    };
    constexpr Row kRows[] = {
        {L"ROT", L"", "", never, 11, -1},
        {L"ANGLE", L"", "angledrills", ortho, 11, 11},
        {L"EXTR", L"", "extrdrills", ortho, 11, 12},
        {L"HATCH", L"", "", never, 11, 11},
        {L"PATH", L"", "", never, 11, 11},
        {L"COMPOUND", L"", "", never, 11, 11},
        {L"DRILL", L"", "", part, 13, 13},
        {L"MRA_NM", L"", "", part, 13, -1},
        {L"SHEET", L"", "", never, 11, 12},
        {L"SHEET", L"EDGE", "edgedrills", always, 11, 12},
        {L"SHEET", L"X", "", never, 11, 12},
        {L"SHEET", L"EDGE_N", "edgendrills", ortho, 11, 12},
    };
    int cases = 0;
    for (const Row& row : kRows) {
        for (int bits = 0; bits < 32 * 8; ++bits, ++cases) {
            const int mode = kModes[bits / 32];
            script.isOrtho = bits & 1;
            script.isAlong = bits & 2;
            script.projects = bits & 4;
            script.hasDrills = bits & 8;
            script.isAngle = host.draws = bits & 16;
            CVekDataItem item = element(row.type), parm;
            dataSet(&item, L"SCONS", row.construction);
            dataSet(&parm, L"CMODE", mode);
            dataSet(&parm, L"CUT", L"c");
            dataSet(&parm, L"INSUNIT", Vek::unitFoot);
            CVekMatrix3d at = moved(7);
            const bool isAngle = CVekString(row.type) == L"ANGLE", isGood = !isAngle || script.isAngle;
            const auto projection = [&](double x, int color, int hidden) {
                return script.projects
                           ? lines(flagOf(mode), color, x, 0) + (mode == 1 ? lines(1280, hidden, x, 100) : "")
                           : "";
            };
            const bool drills = isGood && (row.when == always || (row.when == ortho && script.isOrtho));
            const bool byHost = row.when == part && script.isAlong;
            std::string expected;
            for (const double x : {70.0, 80.0}) // the layers of the drills name no hidden one, and so no colour
                expected += drills && script.hasDrills && !script.isAlong ? projection(x, 5, 5) : "";
            expected += isGood && !byHost ? projection(7, row.color, row.hidden) : "";
            EXPECT_EQ(drawn(vek_gdx_image_bgr_bt, &item, at, moved(30), &parm), expected);
            EXPECT_EQ(result, byHost ? host.draws : isGood && script.projects);
            const auto calls = [&](const std::string& text) { return script.calls.find(text) != std::string::npos; };
            EXPECT_EQ(calls(row.drills), *row.drills ? drills : true);
            EXPECT_EQ(calls("NO_DRILL=1"), drills) << script.calls;
            EXPECT_EQ(calls("MTX_PR=30"), row.when == always);
            EXPECT_EQ(calls("CUT=c"), !byHost && isGood && CVekString(row.type) != L"COMPOUND") << script.calls;
            EXPECT_EQ(calls("host{"), byHost || (drills && script.hasDrills && script.isAlong));
            EXPECT_TRUE(!byHost ||
                        calls("host{GENERATED=0,LAYER=13,LAYER_H=14}{CMODE=" + std::to_string(mode) + ",MTX=3007}"));
            EXPECT_TRUE(!isAngle || calls("angle{BT=-99,DEFUNIT=0,GENERATED=0,INSUNIT=2,"));
        }
    }
    EXPECT_EQ(cases, 12 * 256);
    CVekDataItem rot = element(L"ROT"), parm(CVekDataItem::directory);
    CVekMatrix3d at;
    script.isChecked = false;
    EXPECT_EQ(drawn(vek_gdx_image_bgr_bt, &rot, at, at, &parm), "");
    EXPECT_EQ(keysOf(&parm) + keysOf(&rot), "{}{BT=-99,LAYER=11,LAYER_H=12,TYPE=ROT,X=0}");
    EXPECT_FALSE(result);
}

TEST_F(Images, ListsOfPartsAreDrawnByTheHost)
{
    CVekDataItem item = element(L"SCORD"), parm;
    for (const wchar_t* name : {L"PART", L"CUT", L"BGR"})
        dataSet(&item, name, name);
    item.remove(L"BT");
    item.makeDir(L"BT");
    dataSet(&parm, L"CMODE", 2);
    CVekMatrix3d at = moved(7);
    EXPECT_EQ(drawn(vek_gdx_image_bgr_bt, &item, at, at, &parm), "");
    EXPECT_TRUE(result);
    int x = 0;
    for (const wchar_t* type : {L"DIN", L"DRILL", L"ROT", L"", L"DIN"}) {
        CVekDataItem* child = item.getItem(L"BT")->makeDir(std::to_wstring(++x).c_str());
        dataSet(child, L"MTX", moved(x));
        dataSet(child, L"BT\\LAYER", std::to_wstring(20 + x).c_str());
        dataSet(child, L"BT\\LAYER_H", L"9");
        if (*type)
            dataSet(child, L"BT\\TYPE", type);
    }
    EXPECT_EQ(drawn(vek_gdx_image_bgr_bt, &item, at, at, &parm),
              lines(512, 21, 8, 0) + lines(512, 22, 9, 0) + lines(512, 25, 12, 0));
    const std::string own = "BGR=BGR,BT=-99,CUT=CUT,PART=PART,";
    for (const std::string& keys : {own + "TYPE=MRA_NM,UNION=0}", own + "SUBTRACT=1,TYPE=DRILL}"})
        EXPECT_NE(script.calls.find("geometry{" + keys), std::string::npos) << script.calls;
    EXPECT_EQ(script.calls.find("SUBTRACT=1,TYPE=DRILL,UNION"), std::string::npos);
    script.isAlong = true;
    EXPECT_EQ(drawn(vek_gdx_image_bgr_bt, &item, at, at, &parm), "");
    EXPECT_NE(script.calls.find("host{GENERATED=0,LAYER=22,LAYER_H=9,TYPE=DRILL}{CMODE=2,MTX=3009}"),
              std::string::npos);
    dataSet(&item, L"BT", 1);
    drawn(vek_gdx_image_bgr_bt, &item, at, at, &parm);
    EXPECT_FALSE(result);
}

TEST_F(Images, SectionMarkIsAHalfDiscWithItsAxis)
{
    for (const int mode : kModes) {
        CVekDataItem item = element(L"SLICE"), parm;
        dataSet(&parm, L"CMODE", mode);
        CVekMatrix3d at = moved(7), view; // from the side of +y: the view's x is -x, its y is z
        view.setCoordSystem({}, {-1, 0, 0}, {0, 0, 1}, {0, 1, 0});
        drawn(vek_gdx_image_bgr_bt, &item, at, view, &parm);
        ASSERT_EQ(gdx.lenGet(), 2);
        const unsigned flag = flagOf(mode == 0 ? 3 : mode);
        EXPECT_EQ(told(gdx.getDisplayList()[1]), "1:" + std::to_string(flag) + ":-1:(-7,0>-7,10) ");
        EXPECT_EQ(gdx.flagGet(0), flag);
        CVekPoint3d low, high; // the half disc of diameter 10 in the plane of the drawing, seen from its edge
        EXPECT_TRUE(gdx.getDisplayList()[0].vl.extents(low, high));
        EXPECT_NEAR(low[0], -12, 1e-9);
        EXPECT_NEAR(high[0], -2, 1e-9);
        EXPECT_NEAR(high[1] - low[1], 0, 1e-9);
        EXPECT_EQ(script.calls, "layerACHSE ");
    }
}

namespace
{

/// A sheet drawn at random, and what its picture is by the rules.
struct SheetCase {
    static constexpr const wchar_t* kDraw[] = {L"", L"L", L"S", L"X"};

    explicit SheetCase(shapes::Random& random) : r(random)
    {
        for (bool* flag : {&axis, &coat, &coord, &hatch2, &isSandwich})
            *flag = r.coin();
        draw = r.whole(4);
        hasHatch = r.whole(4) > 0;
        segment = r.pick({0, 20, -30});
        count = r.pick({0, 1.5, 2, -3, 2.5});
        mirrored = r.whole(3) == 0;
        width = count != 0 && segment != 0 ? count * segment : 5 * 8;
        const wchar_t* const kHatch[] = {L"HPNAME", L"ANSI"};
        dataSet(&object, L"D", -8.0);
        dataSet(&object, L"S", 4.0);
        dataSet(&object, L"STACK", CVekArrayTempl<CVekString>{L"outer"});
        dataSet(&object, L"ID", L"id7");
        dataSet(&object, L"DRAW", kDraw[draw]);
        dataSet(&object, L"PART_CON", L"41");
        dataSet(&object, L"PART_CEN", L"43");
        dataSet(&object, L"AXIS", axis);
        dataSet(&object, L"COATLINE", coat);
        dataSet(&object, L"IS_HATCH2", hatch2);
        if (hasHatch) {
            dataSet(&object, kHatch[0], kHatch[1]);
            dataSet(&object, L"HPSCALE", 3.0);
        }
        if (r.coin())
            dataSet(&object, L"PART_FILL", L"42");
        fill = object.getItem(L"PART_FILL") ? 42 : 41;
        CVekColor color;
        for (const int i : {0, 1}) {
            color.setColorIndex(static_cast<short>(51 + i));
            if (r.coin()) {
                surface[i] = 51 + i;
                dataSet(&object, i ? L"SURFACE\\2" : L"SURFACE\\1", color);
            }
        }
        outer = script.sheets.makeDir(L"outer");
        dataSet(outer, L"SEG", segment);
        dataSet(outer, L"N", count);
        if (r.coin() || mirrored)
            dataSet(outer, L"HORIZONTAL", mirrored ? -1 : 1);
        if (r.coin())
            dataSet(outer, L"\\AXIS", r.coin());
        axis = axis && read(outer, L"\\AXIS", true);
        if (r.coin())
            dataSet(outer, L"\\COAT", r.coin());
        if (read(outer, L"\\COAT", false))
            surface[1] = surface[0] ? 51 : 0;
        dataSet(outer, L"THICK\\id7\\S", 1.0);
        dataSet(outer, L"THICK\\id7\\S_BOT", 2.0);
    }

    std::string line(int color, double x, double y, unsigned flag = 0, const char* kind = "1", std::string rest = "")
    {
        const double a = mirrored ? width - x : x, b = mirrored ? a - 1 : a + 1;
        std::ostringstream text;
        text << kind << ':' << flag << ':' << color << ":(" << num(a) << ',' << num(y) << '>' << num(b) << ',' << num(y)
             << ')' << rest << ' ';
        return text.str();
    }
    std::string profileLines(double thickness)
    {
        std::string text;
        for (int i = 0; i < script.lines; ++i)
            text += draw == 1   ? line(41, thickness, i, 17, "3", std::to_string(fill) + "10")
                    : draw == 2 ? line(41, thickness, i, 18, "3", std::to_string(fill) + (hasHatch ? "ANSI30" : "10"))
                                : line(41, thickness, i);
        return text;
    }
    std::string axes(double thickness)
    {
        std::string text;
        for (int i = 0; axis && script.lines > 0 && count + 1 > i; ++i)
            text += line(43, segment * i, 70 + thickness);
        return text;
    }
    std::string coatLine(int i, double y) { return coat && surface[i] ? line(surface[i], 0, y) : ""; }
    std::string mark() { return coord && script.lines > 0 ? "2:1024:-1:(0,0) " : ""; }

    std::string expectedSingle()
    {
        const int kind = r.whole(4);
        if (kind == 1 || (kind == 2 && r.coin()))
            outer->makeDir(kind == 1 ? L"FILLET_P" : L"POINTS");
        if (kind > 1 && r.coin())
            outer->makeDir(L"REGION");
        const bool fillet = outer->getItem(L"FILLET_P") || outer->getItem(L"POINTS");
        const bool region = !fillet && outer->getItem(L"REGION");
        std::ostringstream ask;
        ask << (fillet ? "fillet" : region ? "region" : "fnc") << "outer:" << width << ",4,0 ";
        calls = ask.str();
        // A region has no skins: their coats are empty lines.
        const auto skin = [&](int i, double y) {
            const bool isDrawn = coat && surface[i];
            return region && isDrawn ? "1:0:" + std::to_string(surface[i]) + ": " : coatLine(i, y);
        };
        return profileLines(4) + skin(0, 50) + skin(1, 60) + mark() + axes(4);
    }

    std::string expectedSandwich()
    {
        dataSet(outer, L"\\CALC", L"COMPOUND");
        outer->makeDir(L"SANDWICH");
        std::string text;
        double top = -1, bottom = -1;
        int regions = 0;
        for (int n = r.whole(6); n > 0; --n) {
            const std::wstring name = L"layer" + std::to_wstring(n);
            CVekDataItem* child = outer->getItem(L"SANDWICH")->makeDir(name.c_str());
            const wchar_t* side = r.whole(3) == 0 ? L"TOP" : r.coin() ? L"BOT" : L"";
            dataSet(child, L"SIDE", side);
            dataSet(child, L"STACK", CVekArrayTempl<CVekString>{name.c_str()});
            dataSet(child, L"X", n * 1.0);
            if (r.whole(6) == 0)
                continue; // a layer without a definition
            const int calc = r.whole(3), type = r.whole(3), geometry = r.whole(3);
            CVekDataItem* sheet = script.sheets.makeDir(name.c_str());
            const wchar_t *const kCalc[] = {L"FNC", L"REGION", L"OUTLINE"}, *const kType[] = {L"", L"GASKET",
                                                                                              L"INSULATION"};
            dataSet(sheet, L"\\CALC", kCalc[calc]);
            dataSet(sheet, L"\\TYPE", kType[type]);
            if (geometry > 0)
                sheet->makeDir(geometry == 1 ? L"REGION" : L"FILLET_P");
            const double s = *side == L'B' ? 2 : 1;
            const bool between = geometry == 0 && calc == 2 && top >= 0 && bottom >= 0;
            const bool has = geometry > 0 || between;
            if (has) {
                std::ostringstream ask;
                if (between)
                    ask << "between" << top << '-' << bottom << 'r' << regions << ' ';
                ask << (between         ? "outline"
                        : geometry == 1 ? "region"
                                        : "fillet")
                    << "layer" << n << ':' << width << ',' << s << ',' << n << ' ';
                calls += ask.str();
            }
            const int count0 = script.lines;
            script.lines = has ? count0 : 0;
            if (*side == L'T')
                top = script.lines > 0 ? s : -1;
            else if (*side == L'B')
                bottom = script.lines > 0 ? s : -1;
            else if (calc == 1)
                ++regions;
            const auto skin = [&](int i) {
                const bool isDrawn = coat && surface[i];
                return isDrawn && geometry != 2 ? "1:0:" + std::to_string(surface[i]) + ": " : coatLine(i, 50);
            };
            if (calc == 0) {
                text += profileLines(s);
                if (*side == L'T')
                    text += axes(s) + skin(0) + mark();
                else if (*side == L'B')
                    text += skin(1);
            } else if (script.lines > 0) {
                // A gasket has a hatch, insulation has none, and the others that of the object.
                const bool hatched = hatch2 && (type == 1 || (type == 0 && draw == 2 && hasHatch));
                const int color = type ? 31 : 41;
                calls += type ? type == 1 ? "DICHT " : "DM " : "";
                const int filled = type ? 32 : object.getItem(L"PART_FILL") ? 42 : color;
                text += line(color, s, 0, hatched ? 18 : 16, "3");
                for (int i = 1; i < script.lines; ++i) {
                    text.pop_back();
                    text += line(color, s, i).substr(std::string("1:0:41:").size());
                }
                text.pop_back();
                text += (hatched ? std::to_string(filled) + (type ? "GUM2.50.5" : "ANSI30") : "-110") + ' ';
            }
            script.lines = count0;
        }
        return text;
    }

    shapes::Random& r;
    CVekDataItem object;
    CVekDataItem* outer = nullptr;
    bool axis, coat, coord, hatch2, isSandwich, hasHatch, mirrored;
    int draw, fill, surface[2] = {};
    double segment, count, width;
    std::string calls;
};

} // namespace

TEST_F(Images, SheetsFollowTheirDefinition)
{
    shapes::Random random(5);
    int single = 0, sandwich = 0, items = 0, between = 0;
    for (int i = 0; i < 4000; ++i) {
        script = Script();
        script.lines = random.whole(4);
        SheetCase sheet(random);
        const std::string expected = sheet.isSandwich ? sheet.expectedSandwich() : sheet.expectedSingle();
        ++(sheet.isSandwich ? sandwich : single);
        CVekDataItem root, params;
        *root.makeDir(L"LOBJ") = sheet.object;
        dataSet(&params, L"COORD", sheet.coord);
        ASSERT_EQ(drawn(vek_gdx_image_fsheet, file(root), file(params)), expected) << i;
        ASSERT_EQ(script.calls, sheet.calls) << i;
        ASSERT_TRUE(result);
        items += gdx.lenGet();
        between += sheet.calls.find("between") != std::string::npos;
    }
    EXPECT_GT(std::min(single, sandwich), 1800);
    EXPECT_GT(items, 9000);
    EXPECT_GT(between, 50);
    EXPECT_FALSE(VEK::cfg_get(L"*ATT*")); // what reading the attributes leaves there is gone
}

TEST_F(Images, BarsShowTheirSurfacesAndSubElements)
{
    for (int bits = 0; bits < 64; ++bits) {
        const bool coated = bits & 1, hasFirst = bits & 2, hasSecond = bits & 4, total = bits & 8, picks = bits & 16;
        const bool hasRegion = bits & 32;
        CVekDataItem root, params;
        CVekDataItem* group = root.makeDir(L"LOBJ\\group");
        CVekDataItem* main = group->makeDir(L"main");
        if (hasRegion)
            dataSet(main, L"REGL", VEK::Regions{{lineAt(1, 0), lineAt(1, 1)}, {lineAt(2, 0)}});
        dataSet(main, L"MTX", moved(100));
        CVekColor color;
        color.setColorIndex(6);
        for (const wchar_t* name : {L"1", L"2", L"TOTAL"}) {
            CVekDataItem* surface = main->makeDir((std::wstring(L"SURFACE\\") + name).c_str());
            if (name[0] == L'1' ? hasFirst : hasSecond)
                dataSet(surface, L"VL", lineAt(name[0] == L'1' ? 11 : 12, 0));
            if (coated)
                dataSet(surface, L"COAT", color);
        }
        if (!total)
            main->remove(L"SURFACE\\TOTAL");
        dataSet(group, L"sub\\XREF\\X", 33.0);
        dataSet(group, L"sub\\X", 104.0);
        dataSet(group, L"line\\VL", shapes::list({shapes::rectangle(0, 0, 1, 1)}));
        dataSet(group, L"line\\MTX", moved(100));
        group->makeDir(L"bare");
        dataSet(&params, L"GRP", L"group");
        dataSet(&params, L"BT", L"main");
        if (picks)
            dataSet(&params, L"PICK\\P2", CVekPoint3d(5, 6, 0));

        const std::string c = coated ? "6" : "3";
        const auto thick = [&](double x) {
            std::ostringstream text;
            text << "1:0:" << c << ":(" << x << ",0>" << x + 1 << ",0)t3 ";
            return text.str();
        };
        std::string expected = hasRegion ? "3:16:-1:(1,0>2,0)(1,1>2,1)-110 3:16:-1:(2,0>3,0)-110 " : "";
        expected += hasFirst ? thick(11) : "";
        expected += hasSecond ? thick(12) : hasFirst ? thick(11) : "";
        expected += total && hasRegion ? thick(1) : "";
        expected += picks ? "2:256:-1:(5,6)p-10,3 " : "";
        expected += "3:1296:-1:(37,0>38,0)-110 3:1296:-1:(0,0>1,0)(1,0>1,1)(1,1>0,1)(0,1>0,0)-110 ";
        EXPECT_EQ(drawn(vek_gdx_image_bar_surface, file(root), file(params)), expected) << bits;
        EXPECT_TRUE(result);
        EXPECT_EQ(script.calls, "subsgroup/main ");
        for (const wchar_t* key : {L"GRP", L"BT"}) {
            CVekDataItem wrong = params;
            dataSet(&wrong, key, L"other");
            EXPECT_EQ(drawn(vek_gdx_image_bar_surface, file(root), file(wrong)), "");
            EXPECT_FALSE(result);
        }
    }
}

TEST_F(Images, DrillsGoToTheHostOrShowTheirSolid)
{
    for (int bits = 0; bits < 32; ++bits) {
        const bool solid = bits & 1, coord = bits & 2, stacked = bits & 4;
        script.hasModel = bits & 8;
        host.draws = bits & 16;
        CVekDataItem root, params;
        dataSet(&root, L"VIEW", solid ? 3 : 2);
        dataSet(&root, L"PART_SOLID", L"8");
        dataSet(&params, L"COORD", coord);
        dataSet(&params, L"CMODE", 17);
        dataSet(&params, L"MTX", moved(3));
        if (stacked)
            dataSet(&params, L"STACK", CVekArrayTempl<int>{4, 5});
        const std::string path = stacked ? "s4s5" : "";
        std::string expected;
        for (int i = 0; i < (solid && script.hasModel ? script.lines : 0); ++i)
            expected += "1:0:8:(1," + std::to_string(i) + ">2," + std::to_string(i) + ")" + path + "s1 ";
        if (!solid && coord)
            expected += "2:1024:-1:(0,0)" + path + "s2 ";
        EXPECT_EQ(drawn(vek_gdx_image_drill, file(root), file(params)), expected);
        EXPECT_EQ(result, !solid || script.hasModel);
        EXPECT_EQ(script.calls, solid ? script.hasModel ? "solid project58,71;-58,71;58,0;01 " : ""
                                      : "host{PART_SOLID=8,VIEW=2}{CMODE=17,MTX=3,STACK=-99}1 ");
    }
    EXPECT_EQ(drawn(vek_gdx_image_drill, nullptr, nullptr), "");
    EXPECT_TRUE(result);
    EXPECT_EQ(script.calls, "host{}{CMODE=0,MTX=0,STACK=-99}1 ");
}

TEST_F(Images, HolePatternsMarkTheirActiveElement)
{
    CVekDataItem holes;
    dataSet(&holes, L"\\PART_CON", L"21");
    dataSet(&holes, L"\\PART_FILL", L"22");
    dataSet(&holes, L"\\HPNAME", L"ANSI");
    dataSet(&holes, L"\\HPSCALE", 2.0);
    dataSet(&holes, L"BT\\outline\\GEN\\TYPE", L"OUTLINE");
    dataSet(&holes, L"BT\\outline\\GEN\\W", 3.0);
    dataSet(&holes, L"BT\\outline\\MTX", moved(10));
    dataSet(&holes, L"BT\\lines\\GEN", shapes::list({lineAt(1, 0), lineAt(2, 0)}));
    dataSet(&holes, L"BT\\lines\\X", 20.0); // placed otherwise
    dataSet(&holes, L"BT\\drill\\GEN\\TYPE", L"DRILL");
    dataSet(&holes, L"BT\\drill\\MTX", moved(30));
    dataSet(&holes, L"BT\\no outline\\GEN\\TYPE", L"OUTLINE");
    dataSet(&holes, L"BT\\other\\GEN\\TYPE", L"OTHER");
    holes.makeDir(L"BT\\nothing");
    const CVekDataKey number(5003, 4, 0);
    dataSet(holes.getItem(L"BT")->makeItem(&number), L"GEN", shapes::list({lineAt(1, 0)}));
    const std::string kNames[] = {"outline", "lines", "drill", "no outline", "other", "nothing"};
    int cases = 0;
    for (const wchar_t* draw : {L"", L"F", L"S", L"X"}) {
        for (int bits = 0; bits < 8 * 2 * 8; ++bits, ++cases) {
            const int mode = kModes[bits / 16];
            const bool coord = bits & 8;
            const std::string active = bits % 8 < 6 ? kNames[bits % 8] : "";
            dataSet(&holes, L"\\DRAW", draw);
            CVekDataItem params;
            dataSet(&params, L"ACT", std::wstring(active.begin(), active.end()).c_str());
            dataSet(&params, L"CMODE", mode);
            dataSet(&params, L"MTX", moved(100));
            dataSet(&params, L"COORD", coord);
            std::string expected, calls;
            for (const std::string& name : kNames) {
                const bool isActive = name == active;
                const int at = name == "outline" ? 110 : name == "lines" ? 120 : name == "drill" ? 130 : 100;
                const unsigned flag = isActive ? 256 : static_cast<unsigned>(mode & 15) * 256;
                const auto one = [&](int x, int y) {
                    std::ostringstream place, text;
                    place << ":21:(" << x << ',' << y << '>' << x + 1 << ',' << y << ')';
                    text << "1:" << flag << place.str() << ' ';
                    if (*draw == L'F' || *draw == L'S')
                        text << (*draw == L'F' ? "3:17" : "3:18") << place.str() << 22
                             << (*draw == L'F' ? "10 " : "ANSI20 ");
                    return text.str();
                };
                if (coord && isActive)
                    expected += "2:256:7:(" + std::to_string(at) + ",0) ";
                if (name == "outline")
                    expected += one(at + 3, -1);
                if (name == "lines")
                    expected += one(at + 1, 0) + one(at + 2, 0);
                if (name == "drill")
                    calls = "host{GENERATED=0,TYPE=DRILL}{CMODE=" + std::to_string(isActive ? 1 : mode) + ",MTX=130}0 ";
                expected += coord ? "2:1024:-1:(100,0) " : "";
            }
            const File given = file(holes);
            EXPECT_EQ(drawn(vek_gdx_image_hole, given, file(params)), expected);
            EXPECT_EQ(script.calls, calls);
            EXPECT_TRUE(result);
            EXPECT_FALSE(given->get(L"BT\\drill\\GEN\\GENERATED", false)); // the file is as it was
        }
    }
    EXPECT_EQ(cases, 4 * 128);
    EXPECT_EQ(drawn(vek_gdx_image_hole, nullptr, nullptr), "");
    host.holes = VEK::CSharedPointer<CVekDataItem>(new CVekDataItem(holes));
    drawn(vek_gdx_image_hole, nullptr, nullptr);
    EXPECT_EQ(gdx.lenGet(), 3);
}

TEST_F(Images, AxesLeaveOutTheOneThatPointsAtTheViewer)
{
    constexpr struct {
        const wchar_t* view;
        const char* shown; ///< an axis that points away from the viewer is there, without length
        int ends[3][2];    ///< where it points in the view
    } kRows[] = {{L"P", "XY", {{1, 0}, {0, 1}}},
                 {L"E", "YZ", {{1, 0}, {0, 1}}},
                 {L"O", "XYZ", {{0, 0}, {-1, 0}, {0, 1}}},
                 {L"N", "XZ", {{-1, 0}, {0, 1}}},
                 {L"S", "XYZ", {{1, 0}, {0, 0}, {0, 1}}}};
    for (const auto& row : kRows) {
        drawn(vek_gdx_image_ucs, VEK::g_mtx_view_dir(row.view, {}));
        std::ostringstream expected, calls;
        for (int i = 0; row.shown[i]; ++i) {
            const int* end = row.ends[i];
            expected << "1:1408:-1:(0,0>" << 0.15 * end[0] << ',' << 0.15 * end[1] << ") 5:1408:-1:(" << 0.19 * end[0]
                     << ',' << 0.19 * end[1] << '>' << 0.19 * end[0] + 1 << ',' << 0.19 * end[1] << ") ";
            calls << "text{ALIGN=CC,HEIGHT=0.04,TEXT=" << row.shown[i] << "}20 ";
        }
        EXPECT_EQ(itemsOf(gdx), expected.str());
        EXPECT_EQ(script.calls, calls.str());
    }
    EXPECT_EQ(CVekVector3d::tol, 0.001);
    CVekDataItem object(CVekDataItem::directory), params;
    dataSet(&params, L"UCS", L"");
    dataSet(&params, L"VIEW", L"W");
    const std::string west = drawn(kAssembly, file(object), file(params));
    dataSet(&params, L"VIEW", L"E");
    EXPECT_EQ(drawn(kAssembly, file(object), file(params)), west);
    EXPECT_EQ(gdx.lenGet(), 4);
}

TEST_F(Images, ExtrusionsComeFromTheHost)
{
    CVekDataItem object, params;
    dataSet(&object, L"A", 1);
    dataSet(&params, L"B", 2);
    gdx.projMtxSet(moved(9));
    EXPECT_EQ(drawn(vek_gdx_image_extr, file(object), file(params)), "1:0:-1:(4,0>5,0) ");
    EXPECT_TRUE(result && gdx.projMtxGet() == CVekMatrix3d());
    EXPECT_EQ(script.calls, "vek_gdx_image_extr1{A=1}{B=2} ");
    host.draws = false;
    for (int n = 1; n <= 3; ++n) { // each call leaves its empty object behind
        EXPECT_EQ(drawn(vek_gdx_image_extr, file(object), nullptr), "");
        EXPECT_FALSE(result);
        EXPECT_EQ(script.calls, "vek_gdx_image_extr" + std::to_string(n) + "{A=1}{} ");
        EXPECT_EQ(gdxMapKeyNew(), n + 1);
    }
    for (int n = 1; n <= 3; ++n)
        EXPECT_TRUE(gdxMapRemoveAt(n));
    EXPECT_FALSE(vek_gdx_image_extr(&gdx, nullptr, nullptr) || vek_gdx_image_extr(nullptr, file(object), nullptr));
    EXPECT_EQ(gdxMapKeyNew(), 1);
}

TEST_F(Images, WallsAreDrawnByTheRegisteredGenerator)
{
    static std::string told;
    const FileGenerator wall = [](CVekGDX*, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* own) {
        told = keysOf(object->get(nullptr, false)) + keysOf(own->get(nullptr, false));
        return read<CVekVertexArray>(own->get(L"VL", false), nullptr).len() == 1;
    };
    for (int bits = 0; bits < 2 * 4 * 3 * 3; ++bits) {
        const bool registered = bits % 2;
        const int numbered = bits / 2 % 4, mode = bits / 8 % 3,
                  corner = bits / 24; ///< number absent, found, lost, deep
        const wchar_t* const kMode[] = {L"SHELL", L"CORNER", L"X"};
        VEK::setGdxImageFcn(L"WALL", registered ? wall : nullptr);
        CVekDataItem params(CVekDataItem::directory);
        for (const int key : {4, 6}) {
            const CVekDataKey path(5005, L"SN", 5003, key, 0);
            if (numbered != 3)
                VEK::dataItemSet(&params, &path, 1);
        }
        if (corner < 2)
            dataSet(&params, L"CORNER\\MODE", kMode[corner]);
        // A bare number leaves no room for the other two, which it then hides.
        CVekDataItem* tree = VEK::cfgMgrPtr()->tree();
        tree->remove(L"*WALL_EDIT*");
        const bool bare = numbered == 1 || numbered == 2;
        if (bare) {
            dataSet(tree, L"*WALL_EDIT*", numbered == 1 ? 6 : 5);
        } else {
            dataSet(tree, L"*WALL_EDIT*\\BT", 6);
            dataSet(tree, L"*WALL_EDIT*\\MODE", kMode[mode]);
            dataSet(tree, L"*WALL_EDIT*\\VL", lineAt(0, 0));
        }
        const bool shown = registered && numbered != 3;
        const bool act = !bare && (mode == 0 || (mode == 1 && corner == 0));
        const std::string keys = std::string(corner < 2 ? "CORNER=-99," : "") + "SN=-99}{";
        told.clear();
        EXPECT_EQ(vek_wall_edit_image(&gdx, file(params)), shown && !bare);
        EXPECT_EQ(told, shown ? "{" + keys + (act ? "ACT=4," : "") + "COORD=1,VL=-99}" : "");
    }
    VEK::setGdxImageFcn(L"WALL", nullptr);
    EXPECT_FALSE(vek_wall_edit_image(&gdx, nullptr));
}

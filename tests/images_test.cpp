// The generators by their rules: what they ask of the object services and of the host, and what they make of it.
#include "images_fixture.h"

namespace
{

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
    for (int bad = 0; bad < 5; ++bad) {
        CVekGDX* const to = bad == 0 ? nullptr : &gdx;
        CVekDataItem* const parm = bad == 3 ? nullptr : bad == 4 ? &leaf : &dir;
        for (const ElementGenerator generator : kElements)
            EXPECT_FALSE(generator(to, bad == 1 ? nullptr : bad == 2 ? &leaf : &dir, m, m, parm)) << bad;
        EXPECT_FALSE(vek_gdx_image_bgr(to, bad == 1 ? nullptr : &dir, bad == 2 ? nullptr : &leaf, m, m, parm, 1, 0));
        EXPECT_FALSE(vek_gdx_image_bgr_slice(to, m, m, to ? parm : &dir) && (bad == 0 || bad > 2));
    }
    EXPECT_FALSE(vek_gdx_image_ucs(nullptr, m) || vek_wall_edit_image(nullptr, empty));
    gdx.clear();
    struct Row {
        FileGenerator generator;
        bool noObject, empty, noParams; ///< what comes of it
    };
    for (const Row& row : {Row{kAssembly, false, true, true},
                           {vek_gdx_image_bar_surface, false, false, false},
                           {vek_gdx_image_fsheet, false, false, false},
                           {vek_gdx_image_hole, true, true, true},
                           {vek_gdx_image_drill, true, true, true}})
        EXPECT_TRUE(!row.generator(nullptr, empty, empty) && row.generator(&gdx, none, empty) == row.noObject &&
                    row.generator(&gdx, empty, empty) == row.empty && row.generator(&gdx, empty, none) == row.noParams);
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
        CVekDataItem object, params = tree("{'BGR_STAT': -2, 'GEN_STAT': -1}");
        for (const wchar_t* name : {L"a", L"b", L"bare"})
            *object.makeItem(CVekString(L"BT\\") + name) =
                element(name[1] ? L"UNKNOWN" : L"ROT", name[0] == L'a' ? 10 : 20);
        dataSet(&params, L"CMODE", mode);
        dataSet(&params, L"COORD", coord);
        dataSet(&params, L"MTX", moved(500));
        if (hasActive)
            dataSet(&params, L"ACT", L"b");
        std::string expected = coord ? "2:1024:-1:(0,0) " : "";
        double aux = 0.0;
        for (const std::string& name : script.names) {
            const double x = 500 + (name == "a" ? 10 : 20) + (aux += 1000);
            if (name == "bare" || name == "lost")
                continue;
            if (coord && mode == 1 && (!several || (hasActive && name == "b")))
                expected += shown(2, 256, -1, '(', x, ",5)");
            expected += lines(flagOf(mode), 11, x, 0) + (mode == 1 ? lines(1280, -1, x, 100) : "");
        }
        EXPECT_EQ(drawn(kAssembly, file(object), file(params)), expected);
        EXPECT_TRUE(result);
        const std::string m = mode ? text(",CMODE=", mode) : "", act = hasActive ? ",ACT=b" : "";
        const std::string parm = (act + m + (coord ? ",COORD=1" : "") + ",MTX=500}").substr(1);
        EXPECT_EQ(script.calls.rfind("strong1{BGR_STAT=-2}{" + parm, 0), 0u) << script.calls;
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
        CVekDataItem object(CVekDataItem::directory), params = tree("{'FULL': true, 'UCS': 1, 'VIEW': 'E'}");
        dataSet(&params, L"CMODE", mode);
        dataSet(&params, L"COORD", (bits & 4) != 0);
        EXPECT_EQ(drawn(kAssembly, file(object), file(params)),
                  (bits & 4 ? "2:1024:-1:(0,0) " : "") + lines(static_cast<unsigned>(mode & 15) * 256, -1, 1, 0));
        EXPECT_EQ(result, script.projects);
        // From the side of +x, world z up: the view's z is x, its x is y.
        EXPECT_EQ(script.calls,
                  std::string("slx{}1101 ") + (script.hasSolid ? "solid " : "") + "project100,0,0;0,100,0;0,0,100;11 ");
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
        {L"ANGLE", L"", "{LAYER=13,LAYER_H=14} angledrills", ortho, 11, 11},
        {L"EXTR", L"", "{LAYER=13,LAYER_H=14} extrdrills", ortho, 11, 12},
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
            CVekDataItem item = element(row.type), parm = tree("{'CUT': 'c', 'INSUNIT': {'@unit': 2}}");
            dataSet(&item, L"SCONS", row.construction);
            dataSet(&parm, L"CMODE", mode);
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
            EXPECT_TRUE(!byHost || calls(text("host{GENERATED=0,LAYER=13,LAYER_H=14}{CMODE=", mode, ",MTX=3007}")));
            EXPECT_TRUE(!isAngle || calls("angle{BT=-99,DEFUNIT=0,GENERATED=0,INSUNIT=2,"));
        }
    }
    EXPECT_EQ(cases, 12 * 256);
    CVekDataItem rot = element(L"ROT"), parm(CVekDataItem::directory);
    CVekMatrix3d at;
    script.isChecked = false;
    EXPECT_TRUE(drawn(vek_gdx_image_bgr_bt, &rot, at, at, &parm) == "" && !result);
    EXPECT_EQ(keysOf(&parm) + keysOf(&rot), "{}{BT=-99,LAYER=11,LAYER_H=12,TYPE=ROT,X=0}");
}

TEST_F(Images, ListsOfPartsAreDrawnByTheHost)
{
    CVekDataItem parm = tree("{'CMODE': 2}");
    CVekDataItem item = tree("{'TYPE': 'SCORD', 'LAYER': '11', 'PART': 'PART', 'CUT': 'CUT', 'BGR': 'BGR', 'BT': {}}");
    CVekMatrix3d at = mirrored(7);
    EXPECT_TRUE(drawn(vek_gdx_image_bgr_bt, &item, at, at, &parm) == "" && result);
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
              lines(512, 21, 6, 0) + lines(512, 22, 5, 0) + lines(512, 25, 2, 0));
    const std::string own = "BGR=BGR,BT=-99,CUT=CUT,PART=PART,";
    for (const std::string& keys : {own + "TYPE=MRA_NM,UNION=0}", own + "SUBTRACT=1,TYPE=DRILL}"})
        EXPECT_NE(script.calls.find("geometry{" + keys), std::string::npos) << script.calls;
    EXPECT_EQ(script.calls.find("SUBTRACT=1,TYPE=DRILL,UNION"), std::string::npos);
    script.isAlong = true;
    EXPECT_EQ(drawn(vek_gdx_image_bgr_bt, &item, at, at, &parm), "");
    EXPECT_NE(script.calls.find("host{GENERATED=0,LAYER=22,LAYER_H=9,TYPE=DRILL}{CMODE=2,MTX=-2995}"),
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
        CVekMatrix3d at = CVekMatrix3d().setToTranslation({7, 4, 0}), view; // from +x: the view's x is y, its y is z
        view.setCoordSystem({}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0});
        drawn(vek_gdx_image_bgr_bt, &item, at, view, &parm);
        ASSERT_EQ(gdx.lenGet(), 2);
        const unsigned flag = flagOf(mode == 0 ? 3 : mode);
        EXPECT_EQ(told(gdx.getDisplayList()[1]), shown(1, flag, -1, "(4,0>4,10)"));
        EXPECT_EQ(gdx.flagGet(0), flag);
        CVekPoint3d low, high; // of the half disc of diameter 10, its straight side across the line of sight
        EXPECT_TRUE(gdx.getDisplayList()[0].vl.extents(low, high));
        EXPECT_NEAR(high[0] - low[0], 5, 1e-9);
        EXPECT_NEAR(std::min(std::fabs(low[0] - 4), std::fabs(high[0] - 4)) + high[1] - low[1], 0, 1e-9);
        EXPECT_EQ(script.calls, "layerACHSE ");
    }
}

/// Sheets and sandwiches drawn at random, and what their picture and the calls for it are by the rules.
TEST_F(Images, SheetsFollowTheirDefinition)
{
    shapes::Random r(5);
    int items = 0, between = 0;
    for (int round = 0; round < 4000; ++round) {
        script = Script();
        const int lineCount = script.lines = r.whole(4);
        CVekDataItem root, params(CVekDataItem::directory);
        CVekDataItem *o = root.makeDir(L"LOBJ"), *outer = script.sheets.makeDir(L"outer");
        const auto maybe = [&](CVekDataItem* item, const wchar_t* key, auto value) {
            if (r.coin())
                dataSet(item, key, value);
        };
        CVekColor coats[2];
        coats[0].setColorIndex(51);
        coats[1].setColorIndex(52);
        for (const wchar_t* key : {L"AXIS", L"COATLINE", L"IS_HATCH2"})
            maybe(o, key, true);
        for (const auto& [key, value] : {std::pair(L"PART_CON", L"41"), std::pair(L"PART_FILL", L"42"),
                                         std::pair(L"PART_CEN", L"43"), std::pair(L"HPNAME", L"ANSI")})
            maybe(o, key, value);
        const wchar_t *const kDraw[] = {L"", L"L", L"S", L"X"}, *const draw = kDraw[r.whole(4)];
        dataSet(o, L"DRAW", draw);
        maybe(o, L"SURFACE\\1", coats[0]);
        maybe(o, L"SURFACE\\2", coats[1]);
        dataSet(o, L"D", -8.0);
        dataSet(o, L"S", 4.0);
        dataSet(o, L"STACK", CVekArrayTempl<CVekString>{L"outer"});
        dataSet(o, L"ID", L"id7");
        dataSet(outer, L"SEG", r.pick({0, 20, -30}));
        maybe(outer, L"N", r.pick({0, 2, -3, 2.5}));
        maybe(outer, L"HORIZONTAL", r.coin() ? -1 : 1);
        maybe(outer, L"\\AXIS", r.coin());
        maybe(outer, L"\\COAT", r.coin());
        dataSet(outer, L"THICK\\id7\\S", 1.0);
        dataSet(outer, L"THICK\\id7\\S_BOT", 2.0);
        maybe(&params, L"COORD", true);

        const double segment = read(outer, L"SEG", 0.0), n = read(outer, L"N", 1.5);
        const double width = n != 0 && segment != 0 ? n * segment : 40;
        const auto layer = [&](const wchar_t* key, int other) {
            return o->getItem(key) ? read<CVekString>(o, key)[1] - L'0' + 40 : other;
        };
        const int color = layer(L"PART_CON", -1), fill = layer(L"PART_FILL", color), axisColor = layer(L"PART_CEN", -1);
        const std::string hatch = *draw == L'S' && o->getItem(L"HPNAME") ? "ANSI10" : "10";
        int skin[2] = {o->getItem(L"SURFACE\\1") ? 51 : 0, o->getItem(L"SURFACE\\2") ? 52 : 0};
        if (read(outer, L"\\COAT", false))
            skin[1] = skin[0];
        const auto at = [&](double x, double y) {
            return read(outer, L"HORIZONTAL", 1) == -1 ? ::at(width - x, y, -1) : ::at(x, y);
        };
        const auto shapes = [&](double s) {
            std::string all;
            for (int i = 0; i < script.lines; ++i)
                all += *draw == L'L'   ? shown(3, 17, color, at(s, i), fill, "10")
                       : *draw == L'S' ? shown(3, 18, color, at(s, i), fill, hatch)
                                       : shown(1, 0, color, at(s, i));
            return all;
        };
        const auto axes = [&](double s) {
            std::string all;
            const bool has = script.lines > 0 && read(o, L"AXIS", false) && read(outer, L"\\AXIS", true);
            for (int i = 0; has && n + 1 > i; ++i)
                all += shown(1, 0, axisColor, at(segment * i, 70 + s));
            return all;
        };
        const auto coat = [&](int i, const std::string& line) {
            return read(o, L"COATLINE", false) && skin[i] ? shown(1, 0, skin[i], line) : "";
        };
        const auto mark = [&] { return script.lines > 0 && params.getItem(L"COORD") ? "2:1024:-1:(0,0) " : ""; };
        const auto ask = [&](const char* service, const std::string& name, double s, double x) {
            return text(service, name, ':', width, ',', s, ',', x, ' ');
        };
        std::string expected, calls;
        if (r.coin()) {
            for (const wchar_t* key : {L"FILLET_P", L"POINTS", L"REGION"})
                maybe(outer, key, 1);
            const bool fillet = outer->getItem(L"FILLET_P") || outer->getItem(L"POINTS");
            const bool region = !fillet && outer->getItem(L"REGION"); // without skins, whose coats are empty lines
            calls = ask(fillet ? "fillet" : region ? "region" : "fnc", "outer", 4, 0);
            expected =
                shapes(4) + coat(0, region ? "" : at(0, 50)) + coat(1, region ? "" : at(0, 60)) + mark() + axes(4);
        } else {
            dataSet(outer, L"\\CALC", L"COMPOUND");
            double top = -1, bottom = -1;
            int regions = 0;
            for (int i = r.whole(12); i > 0; --i) {
                const std::string name = text("layer", i);
                const std::wstring wide(name.begin(), name.end());
                CVekDataItem* child = outer->makeDir((L"SANDWICH\\" + wide).c_str());
                const bool isTop = r.coin(), isBottom = !isTop && r.coin();
                dataSet(child, L"SIDE", isTop ? L"TOP" : isBottom ? L"BOT" : L"");
                dataSet(child, L"STACK", CVekArrayTempl<CVekString>{wide.c_str()});
                dataSet(child, L"X", i * 1.0);
                if (r.whole(6) == 0)
                    continue; // a layer without a definition
                CVekDataItem* sheet = script.sheets.makeDir(wide.c_str());
                const int calc = r.whole(3), type = r.whole(3), geometry = r.whole(3);
                const wchar_t *const kCalc[] = {L"", L"REGION", L"OUTLINE"}, *const kType[] = {L"", L"GASKET",
                                                                                               L"INSULATION"};
                dataSet(sheet, L"\\CALC", kCalc[calc]);
                dataSet(sheet, L"\\TYPE", kType[type]);
                if (geometry > 0)
                    sheet->makeDir(geometry == 1 ? L"REGION" : L"FILLET_P");
                const double s = isBottom ? 2 : 1;
                const bool isBetween = geometry == 0 && calc == 2 && top >= 0 && bottom >= 0;
                if (isBetween)
                    calls += text("between", top, '-', bottom, 'r', regions, ' ');
                if (geometry > 0 || isBetween)
                    calls += ask(isBetween ? "outline" : geometry == 1 ? "region" : "fillet", name, s, i);
                between += isBetween;
                script.lines = geometry > 0 || isBetween ? lineCount : 0;
                const std::string first = geometry == 2 ? at(0, 50) : "";
                if (isTop)
                    top = script.lines > 0 ? s : -1;
                else if (isBottom)
                    bottom = script.lines > 0 ? s : -1;
                else
                    regions += calc == 1;
                if (calc == 0)
                    expected += shapes(s) + (isTop      ? axes(s) + coat(0, first) + mark()
                                             : isBottom ? coat(1, first)
                                                        : "");
                if (calc > 0 && script.lines > 0) { // a gasket has a hatch, insulation none, others that of the object
                    const std::string own = type == 1 ? "32GUM2.50.5" : text(layer(L"PART_FILL", color), "ANSI10");
                    const bool hatched = read(o, L"IS_HATCH2", false) && (type == 1 || (type == 0 && hatch != "10"));
                    std::string all;
                    for (int k = 0; k < script.lines; ++k)
                        all += at(s, k);
                    calls += type == 1 ? "DICHT " : type == 2 ? "DM " : "";
                    expected += shown(3, hatched ? 18 : 16, type ? 31 : color, all, hatched ? own : "-110");
                }
                script.lines = lineCount;
            }
        }
        ASSERT_EQ(drawn(vek_gdx_image_fsheet, file(root), file(params)), expected) << round;
        ASSERT_EQ(script.calls, calls) << round;
        ASSERT_TRUE(result);
        items += gdx.lenGet();
    }
    EXPECT_GT(items, 8000);
    EXPECT_GT(between, 30);
    EXPECT_FALSE(VEK::cfg_get(L"*ATT*")); // what reading the attributes leaves there is gone
}

TEST_F(Images, BarsShowTheirSurfacesAndSubElements)
{
    for (int bits = 0; bits < 64; ++bits) {
        const bool coated = bits & 1, hasFirst = bits & 2, hasSecond = bits & 4, total = bits & 8, picks = bits & 16;
        const bool hasRegion = bits & 32;
        CVekDataItem root = tree(R"({'LOBJ': {'group': {'main': {'SURFACE': {'1': {}, '2': {}, 'TOTAL': {}}},
            'sub': {'X': 104.0, 'XREF': {'X': 33.0}}, 'line': {}, 'bare': {}}}})");
        CVekDataItem params = tree("{'GRP': 'group', 'BT': 'main'}"), *group = root.getItem(L"LOBJ\\group");
        CVekDataItem* main = group->getItem(L"main");
        if (hasRegion)
            dataSet(main, L"REGL", VEK::Regions{{lineAt(1, 0), lineAt(1, 1)}, {lineAt(2, 0)}});
        dataSet(main, L"MTX", mirrored(100));
        CVekColor color;
        color.setColorIndex(6);
        for (const wchar_t* name : {L"1", L"2", L"TOTAL"}) {
            CVekDataItem* surface = main->getItem(L"SURFACE")->getItem(name);
            if (name[0] == L'1' ? hasFirst : hasSecond)
                dataSet(surface, L"VL", lineAt(name[0] == L'1' ? 11 : 12, 0));
            if (coated)
                dataSet(surface, L"COAT", color);
        }
        if (!total)
            main->remove(L"SURFACE\\TOTAL");
        dataSet(group, L"line\\VL", shapes::list({shapes::rectangle(0, 0, 1, 1)}));
        dataSet(group, L"line\\MTX", moved(100));
        if (picks)
            dataSet(&params, L"PICK\\P2", CVekPoint3d(5, 6, 0));

        const auto thick = [&](double x) { return shown(1, 0, coated ? 6 : 3, at(x, 0), "t3"); };
        std::string expected = hasRegion ? "3:16:-1:(1,0>2,0)(1,1>2,1)-110 3:16:-1:(2,0>3,0)-110 " : "";
        expected += hasFirst ? thick(11) : "";
        expected += hasSecond ? thick(12) : hasFirst ? thick(11) : "";
        expected += total && hasRegion ? thick(1) : "";
        expected += picks ? "2:256:-1:(5,6)p-10,3 " : "";
        expected += "3:1296:-1:(-37,0>-38,0)-110 3:1296:-1:(0,0>-1,0)(-1,0>-1,1)(-1,1>0,1)(0,1>0,0)-110 ";
        EXPECT_EQ(drawn(vek_gdx_image_bar_surface, file(root), file(params)), expected) << bits;
        EXPECT_TRUE(result);
        EXPECT_EQ(script.calls, "subsgroup/main ");
        for (const wchar_t* key : {L"GRP", L"BT"}) {
            CVekDataItem wrong = params;
            dataSet(&wrong, key, L"other");
            EXPECT_TRUE(drawn(vek_gdx_image_bar_surface, file(root), file(wrong)) == "" && !result);
        }
    }
}

TEST_F(Images, DrillsGoToTheHostOrShowTheirSolid)
{
    for (int bits = 0; bits < 32; ++bits) {
        const bool solid = bits & 1, coord = bits & 2, stacked = bits & 4;
        script.hasModel = bits & 8;
        host.draws = bits & 16;
        CVekDataItem root = tree("{'PART_SOLID': '8'}"), params = tree("{'CMODE': 17}");
        dataSet(&root, L"VIEW", solid ? 3 : 2);
        dataSet(&params, L"COORD", coord);
        dataSet(&params, L"MTX", moved(3));
        if (stacked)
            dataSet(&params, L"STACK", CVekArrayTempl<int>{4, 5});
        const std::string path = stacked ? "s4s5" : "";
        std::string expected;
        if (solid && script.hasModel)
            expected = lines(0, 8, 1, 0, path + "s1");
        if (!solid && coord)
            expected = shown(2, 1024, -1, "(0,0)", path, "s2");
        EXPECT_EQ(drawn(vek_gdx_image_drill, file(root), file(params)), expected);
        EXPECT_EQ(result, !solid || script.hasModel);
        EXPECT_EQ(script.calls, solid ? script.hasModel ? "solid project58,71,-41;-58,71,41;58,0,82;01 " : ""
                                      : "host{PART_SOLID=8,VIEW=2}{CMODE=17,MTX=3,STACK=-99}1 ");
    }
    EXPECT_TRUE(drawn(vek_gdx_image_drill, nullptr, nullptr) == "" && result);
    EXPECT_EQ(script.calls, "host{}{CMODE=0,MTX=0,STACK=-99}1 ");
}

TEST_F(Images, HolePatternsMarkTheirActiveElement)
{
    CVekDataItem holes = tree(R"({'': {'PART_CON': '21', 'PART_FILL': '22', 'HPNAME': 'ANSI', 'HPSCALE': 2.0},
        'BT': {'outline': {'GEN': {'TYPE': 'OUTLINE', 'W': 3.0}}, 'lines': {'GEN': {'@polylines': [[[1, 0, 0, 2, 0, 0, 0]],
        [[2, 0, 0, 3, 0, 0, 0]]]}, 'X': 20.0}, 'drill': {'GEN': {'TYPE': 'DRILL'}},
        'no outline': {'GEN': {'TYPE': 'OUTLINE'}}, 'other': {'GEN': {'TYPE': 'OTHER'}}, 'nothing': {}}})");
    dataSet(&holes, L"BT\\outline\\MTX", moved(10));
    dataSet(&holes, L"BT\\drill\\MTX", moved(30)); // the lines are placed otherwise
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
            dataSet(&params, L"MTX", mirrored(100));
            dataSet(&params, L"COORD", coord);
            std::string expected, calls;
            for (const std::string& name : kNames) {
                const bool isActive = name == active;
                const int origin = name == "outline" ? 90 : name == "lines" ? 80 : name == "drill" ? 70 : 100;
                const unsigned flag = isActive ? 256 : static_cast<unsigned>(mode & 15) * 256;
                const auto one = [&](int x, int y) {
                    const std::string place = at(origin - x, y, -1);
                    return shown(1, flag, 21, place) + (*draw == L'F'   ? shown(3, 17, 21, place, "2210")
                                                        : *draw == L'S' ? shown(3, 18, 21, place, "22ANSI20")
                                                                        : "");
                };
                if (coord && isActive)
                    expected += shown(2, 256, 7, '(', origin, ",0)");
                if (name == "outline")
                    expected += one(3, -1);
                if (name == "lines")
                    expected += one(1, 0) + one(2, 0);
                if (name == "drill")
                    calls = text("host{GENERATED=0,TYPE=DRILL}{CMODE=", isActive ? 1 : mode, ",MTX=70}0 ");
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
        const char* axes; ///< an axis that points away from the viewer is there, without length
        int ends[3][2];   ///< where it points in the view
    } kRows[] = {{L"P", "XY", {{1, 0}, {0, 1}}},
                 {L"E", "YZ", {{1, 0}, {0, 1}}},
                 {L"O", "XYZ", {{0, 0}, {-1, 0}, {0, 1}}},
                 {L"N", "XZ", {{-1, 0}, {0, 1}}},
                 {L"S", "XYZ", {{1, 0}, {0, 0}, {0, 1}}}};
    for (const auto& row : kRows) {
        drawn(vek_gdx_image_ucs, VEK::g_mtx_view_dir(row.view, {}));
        std::string expected, calls;
        for (int i = 0; row.axes[i]; ++i) {
            const double x = row.ends[i][0], y = row.ends[i][1];
            expected += shown(1, 1408, -1, lineText(0, 0, 0.15 * x, 0.15 * y));
            expected += shown(5, 1408, -1, at(0.19 * x, 0.19 * y));
            calls += text("text{ALIGN=CC,HEIGHT=0.04,TEXT=", row.axes[i], "}20 ");
        }
        EXPECT_EQ(itemsOf(gdx), expected);
        EXPECT_EQ(script.calls, calls);
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
    const CVekDataItem object = tree("{'A': 1}"), params = tree("{'B': 2}");
    gdx.projMtxSet(moved(9));
    EXPECT_EQ(drawn(vek_gdx_image_extr, file(object), file(params)), "1:0:-1:(4,0>5,0) ");
    EXPECT_TRUE(result && gdx.projMtxGet() == CVekMatrix3d());
    EXPECT_EQ(script.calls, "vek_gdx_image_extr1{A=1}{B=2} ");
    host.draws = false;
    for (int n = 1; n <= 3; ++n) { // each call leaves its empty object behind
        EXPECT_TRUE(drawn(vek_gdx_image_extr, file(object), nullptr) == "" && !result);
        EXPECT_EQ(script.calls, text("vek_gdx_image_extr", n, "{A=1}{} "));
        EXPECT_EQ(gdxMapKeyNew(), n + 1);
    }
    EXPECT_TRUE(gdxMapRemoveAt(1) && gdxMapRemoveAt(2) && gdxMapRemoveAt(3));
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

// The ready host with the library's own object services: what it draws and calls by itself, and whole assemblies.
#include "object_pictures.h"
#include "objects_data.h"

#include <algorithm>
#include <functional>

namespace
{

using objects_test::tree, VEK::dataSet;

class LocalHost : public testing::Test
{
protected:
    LocalHost() { vekAppSet(&app); }
    ~LocalHost() override { vekAppSet(nullptr); }

    CVekLocalApp app;
    CVekGDX gdx;
};

} // namespace

TEST_F(LocalHost, DrawsDrillsAndStandardPartsAlongTheirAxis)
{
    struct Row {
        const wchar_t* din;
        double diameter;
        int segments;
        double width; ///< of what is seen, along y
        double last;  ///< length of the last segment: a centre line, or the diameter of the hole or thread
    };
    // A hexagon lies on its flats; the circle is two arcs.
    for (const Row& row : {Row{nullptr, 8, 4, 12, 12},
                           {L"DIN 933", 10, 8, 17, 10},
                           {L"DIN 934", 8, 8, 13, 8},
                           {L"DIN 125", 10, 4, 20, 10.5},
                           {L"DIN 976", 12, 2, 12, 12},
                           {nullptr, 0, 0, 0, 0},
                           {nullptr, -1, 0, 0, 0}}) {
        CVekDataItem object = tree("{'L': 30.0}"), wish = tree("{'CMODE': 2}");
        dataSet(&object, L"D", row.diameter);
        if (row.din)
            dataSet(&object, L"DIN", row.din);
        dataSet(&wish, L"MTX", CVekMatrix3d().setToTranslation({100, 50, 0}));
        dataSet(&wish, L"STACK", CVekArrayTempl<int>{3, 1});
        gdx.clear();
        EXPECT_EQ(app.imageObject(&gdx, &object, &wish), row.segments > 0);
        ASSERT_EQ(gdx.lenGet(), row.segments > 0 ? 1 : 0);
        CVekPoint3d low, high;
        if (gdx.lenGet() == 0 || !gdx.extmaxGet(low, high))
            continue;
        const CVekDisplayItem& item = gdx.getDisplayList()[0];
        EXPECT_EQ(item.vl.len(), row.segments);
        EXPECT_NEAR(high[1] - low[1], row.width, 1e-9);
        EXPECT_NEAR((item.vl[-1].end - item.vl[-1].start).abs(), row.last, 1e-9);
        EXPECT_NEAR((high[1] + low[1]) / 2, 50, 1e-9);
        EXPECT_NEAR((high[0] + low[0]) / 2, 100, 1e-9);
        EXPECT_EQ(item.flag, 512u);
        EXPECT_TRUE(item.stack.len() == 2 && item.stack[0] == 3 && item.stack[1] == 1);
    }
    EXPECT_FALSE(app.imageObject(nullptr, nullptr, nullptr) || app.imageObject(&gdx, nullptr, nullptr));
}

TEST_F(LocalHost, BringsTextsAndExtrusionsAlong)
{
    CVekDataItem text = tree("{'TEXT': 'XH', 'HEIGHT': 0.5}");
    for (const wchar_t* align : {L"BL", L"BC", L"BR", L"CL", L"CC", L"CR", L"TL", L"TC", L"TR", L""}) {
        dataSet(&text, L"ALIGN", align);
        gdx.clear();
        ASSERT_TRUE(gdx.imageTxt({}, 0, &text, CVekColor(), CVekMatrix3d(), 20.0, {}));
        CVekPoint3d low, high;
        ASSERT_TRUE(gdx.extmaxGet(low, high));
        EXPECT_NEAR(high[1] - low[1], 0.5, 1e-9);
        EXPECT_NEAR(align[0] == L'T' ? high[1] : align[0] == L'C' ? high[1] + low[1] : low[1], 0.0, 1e-9);
        const bool isLeft = !align[0] || align[1] == L'L';
        EXPECT_NEAR(isLeft ? std::min(low[0], 0.0) : align[1] == L'R' ? high[0] : high[0] + low[0], 0.0, 1e-9);
    }
    // A definition alone is an extrusion: a rectangle seen from its side.
    const CVekDataItem object = tree("{'OUTLINE': {'CODE': 2, 'PARMS': {'#1': 50.0, '#2': 120.0}}, 'LEN': 300.0}");
    const CVekDataItem params = tree("{'VIEW': 'E'}");
    gdx.clear();
    const object_pictures::File file(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &object));
    const object_pictures::File wish(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &params));
    EXPECT_TRUE(vek_gdx_image_extr(&gdx, file, wish));
    CVekPoint3d low, high;
    ASSERT_TRUE(gdx.extmaxGet(low, high));
    EXPECT_NEAR(high[0] - low[0], 120.0, 1e-9);
    EXPECT_NEAR(high[1] - low[1], 300.0, 1e-9);
    // What the program registers comes first, and what it takes back leaves the host's own.
    app.functionSet(L"vek_gdx_image_extr", [](resbuf*, VEK::CUniqResbuf&) { return VEK::kHostNormal; });
    EXPECT_FALSE(vek_gdx_image_extr(&gdx, file, wish));
    EXPECT_TRUE(gdxMapRemoveAt(1));
    app.functionSet(L"vek_gdx_image_extr", nullptr);
    EXPECT_TRUE(vek_gdx_image_extr(&gdx, file, wish));
    VEK::CUniqResbuf result;
    for (const wchar_t* name : {L"vek_gdx_image_extr", L"vek_text_to_regl", L"other"})
        EXPECT_NE(app.callFunction(name, nullptr, result), VEK::kHostNormal);
}

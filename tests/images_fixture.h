/// @file
/// What the tests of the generators share: items and calls as texts, a host, and a fixture.
#pragma once

#include "images_services.h"

#include "objects_data.h"
#include "shapes.h"

#include <vek/images.h>

#include <gtest/gtest.h>

namespace images_test
{

using objects_test::tree, VEK::dataSet;

constexpr int kModes[] = {-1, 0, 1, 2, 3, 15, 16, 17};

template <class... Part>
std::string text(const Part&... parts)
{
    std::ostringstream out;
    (out << ... << parts);
    return out.str();
}

inline double num(double x)
{
    return std::round(x * 1e4) / 1e4 + 0.0;
}

inline std::string lineText(double x0, double y0, double x1, double y1)
{
    return text('(', num(x0), ',', num(y0), '>', num(x1), ',', num(y1), ')');
}

/// As a line of `lineAt` is told, moved or mirrored.
inline std::string at(double x, double y, double way = 1.0)
{
    return lineText(x, y, x + way, y);
}

inline std::string places(const CVekVertexArray& vl, const CVekMatrix3d& m)
{
    std::string all;
    for (const CVekVertex& v : vl) {
        const CVekPoint3d a = v.start * m, b = v.end * m;
        all += lineText(a[0], a[1], b[0], b[1]);
    }
    return all;
}

template <class... Rest>
std::string shown(int type, unsigned flag, int color, const Rest&... rest)
{
    return text(type, ':', flag, ':', color, ':', rest..., ' ');
}

/// An item by all that is not as for every item of a generator.
inline std::string told(const CVekDisplayItem& item)
{
    const bool isPoint = item.type == dispPoint;
    std::string rest = isPoint ? text('(', num(item.point[0]), ',', num(item.point[1]), ')') : "";
    rest += item.type == dispPolyline ? places(item.vl, item.mtx) : "";
    for (const CVekVertexArray& contour : item.reg)
        rest += places(contour, item.mtx);
    if (item.type == dispRegion)
        rest += text(item.fcolor.colorIndex(), narrow(item.hatch.name), num(item.hatch.scale), num(item.hatch.angle));
    if (item.type == dispText)
        rest += places(item.regl[0][0], item.mtx);
    for (int i = 0; i < item.stack.len(); ++i)
        rest += text('s', item.stack[i]);
    if (item.thickn != 0)
        rest += text('t', item.thickn);
    if (isPoint && (item.pdSize != 0.0 || item.pdMode != 0xFFFFFFFF))
        rest += text('p', item.pdSize, ',', item.pdMode);
    const bool isPlain = item.linetype.len() == 1 && item.linetype[0] == 1.0 && item.ltscale == 1.0;
    if ((!isPlain && (item.type == dispPolyline || item.type == dispRegion)) ||
        (isPoint && !(item.mtx == CVekMatrix3d())))
        rest += '!';
    return shown(item.type, item.flag, item.color.colorIndex(), rest);
}

inline std::string itemsOf(const CVekGDX& gdx)
{
    std::string all;
    for (const CVekDisplayItem& item : gdx.getDisplayList())
        all += told(item);
    return all;
}

inline std::string lines(unsigned flag, int color, double x, double y, const std::string& path = "")
{
    std::string all;
    for (int i = 0; i < script.lines; ++i)
        all += shown(1, flag, color, at(x, y + i), path);
    return all;
}

inline unsigned flagOf(int mode)
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
        CVekDataItem item = tree("{'LAYER': '11', 'LAYER_H': '12', 'BT': {'LAYER': '13', 'LAYER_H': '14'}}");
        dataSet(&item, L"TYPE", type);
        dataSet(&item, L"X", x);
        return item;
    }

    Host host;
    VEK::CCfgBackup backup{true};
    CVekGDX gdx;
    bool result = false;
};

} // namespace images_test

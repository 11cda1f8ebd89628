// What tests of the draw pass share: display objects in device units, and the calls that they are drawn by.
#pragma once

#include "display/pass_rules.h"
#include "display_fixture.h"

#include <vek/surfaces.h>

namespace display_test
{

using VEK::PassRules;
using VEK::SurfaceOp;
using Rules = const PassRules&;

inline constexpr unsigned kBack = 0xC0C0C0;

/// The rules without their fit: pictures come in device units then.
inline PassRules unfitted(PassRules rules)
{
    rules.fitsView = false;
    return rules;
}
inline const PassRules kPaper = unfitted(VEK::paperRules);
inline const PassRules kScreen = unfitted(VEK::screenRules);

inline Gdx grey()
{
    return Gdx(rgb(kBack), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
}

inline const CVekColor kRed = rgb(0xFF0000);
inline const CVekMatrix3d kNone;

inline void addLine(Gdx& gdx, const CVekVertexArray& vl, const CVekColor& color = kRed, const CVekMatrix3d& m = kNone,
                    unsigned flag = 0, int width = 1, const CVekPoint3d& reference = {})
{
    gdx.imageVl(path({}), flag, vl, color, m, doubles({}), 1.0, static_cast<unsigned long>(width), reference);
}

inline void addRegion(Gdx& gdx, unsigned flag, const CVekArrayTempl<CVekVertexArray>& region,
                      const CVekColor& color = kRed, const CVekColor& fill = CVekColor(), const CVekMatrix3d& m = kNone,
                      const VEK::CHatchProp& hatch = {})
{
    gdx.imageReg(path({}), flag, region, color, m, doubles({}), 1.0, 1, fill, hatch, CVekPoint3d());
}

inline void addItem(Gdx& gdx, const CVekDisplayItem& item)
{
    CVekArrayTempl<CVekDisplayItem> list;
    list.append(item);
    gdx.addDisplayList(list);
}

/// A square with its lower corner at (x, y).
inline CVekVertexArray box(double x, double y, double side)
{
    return shapes::rectangle(x, y, x + side, y + side);
}

inline CVekVertexArray polyline(const std::vector<CVekVertex>& vertices)
{
    return shapes::path(vertices);
}

/// The device calls, without the ones that open every pass.
inline VEK::CRecorder draw(Gdx& gdx, Rules rules, bool wholePixels = false, int height = 100, int width = 200)
{
    VEK::CRecorder recorder(wholePixels);
    VEK::gdxDraw(gdx, recorder, height, width, rules);
    return recorder;
}

inline std::string textOf(const VEK::CRecorder& recorder, Rules rules)
{
    const std::string text = recorder.text();
    const std::string opening = rules.fillsBackground ? "clipTo 0,0 200,100\nnoPen\nsolidRect 0,0 200,100 #c0c0c0\n"
                                                        "background #c0c0c0\n"
                                                      : "clipTo 0,0 200,100\nbackground #c0c0c0\n";
    EXPECT_EQ(text.substr(0, opening.size()), opening);
    return text.substr(std::min(opening.size(), text.size()));
}

inline std::string calls(Gdx& gdx, Rules rules = kPaper, bool wholePixels = false)
{
    return textOf(draw(gdx, rules, wholePixels), rules);
}

} // namespace display_test

#include "samples.h"

#include "shared/lettering.h"
#include "shared/sample.h"
#include "shared/sheet.h"

#include <cmath>
#include <initializer_list>
#include <iterator>
#include <numbers>

namespace
{

constexpr double kPitch = 120.0; // between samples
constexpr double kLetter = 6.0;
constexpr int kIcon = 2000; // of the library

constexpr int kColors[] = {1, 30, 94, 5, 200, 134}; // each is visible on white and on black

CVekColor indexed(int index)
{
    CVekColor color;
    color.setColorIndex(index);
    return color;
}

CVekMatrix3d placed(double x, double y, double height)
{
    CVekMatrix3d place;
    place.setCoordSystem({x, y, 0.0}, {height, 0.0, 0.0}, {0.0, height, 0.0}, {0.0, 0.0, height});
    return place;
}

CVekVertexArray path(std::initializer_list<CVekPoint3d> points, bool closed)
{
    CVekPoint3dArray array;
    for (const CVekPoint3d& point : points)
        array.append(point);
    CVekVertexArray line;
    line.fromPoints(array, closed);
    return line;
}

CVekVertexArray box(double x0, double y0, double x1, double y1)
{
    return path({{x0, y0, 0.0}, {x1, y0, 0.0}, {x1, y1, 0.0}, {x0, y1, 0.0}}, true);
}

/// A kind's place on the sheet of all kinds, with its name beneath.
struct Place {
    CVekGDX& gdx;
    CVekGDX::Stack stack;
    double x;
    double y;

    Place(CVekGDX& object, int number, const wchar_t* name)
        : gdx(object), x(number % 3 * kPitch), y(number / 3 * -kPitch)
    {
        stack.append(number + 1);
        TextLook look;
        look.stack = stack;
        look.middle = true;
        addText(gdx, name, placed(x + 40.0, y - 14.0, kLetter), look);
    }
    void line(const CVekVertexArray& vl, int color, const CVekArrayTempl<double>& type, unsigned width)
    {
        gdx.imageVl(stack, 0, vl, indexed(color), CVekMatrix3d::kIdentity, type, 1.0, width, CVekPoint3d::kOrigin);
    }
    void region(const CVekGDX::Region& contours, unsigned long flag, int color, int fill, const VEK::CHatchProp& hatch)
    {
        gdx.imageReg(stack, flag, contours, indexed(color), CVekMatrix3d::kIdentity, {}, 1.0, 1, indexed(fill), hatch,
                     CVekPoint3d::kOrigin);
    }
    CVekGDX::Region frame() const
    {
        CVekGDX::Region contours;
        contours[0] = box(x, y, x + 80.0, y + 80.0);
        contours[1] = box(x + 24.0, y + 24.0, x + 56.0, y + 56.0);
        return contours;
    }
};

CVekArrayTempl<double> dashes(std::initializer_list<double> lengths)
{
    CVekArrayTempl<double> type;
    for (const double length : lengths)
        type.append(length);
    return type;
}

void addMarks(Place& place)
{
    const unsigned long styles[] = {2, 3, 34, 35, 64, 98};
    for (int i = 0; i < 6; ++i) {
        place.gdx.imagePt(place.stack, 0, {place.x + 10.0 + i % 3 * 30.0, place.y + 20.0 + i / 3 * 40.0, 0.0},
                          indexed(kColors[i]), CVekMatrix3d::kIdentity, -21.0, styles[i], CVekPoint3d::kOrigin);
    }
}

CVekPoint3d onCircle(double radius, double angle)
{
    return {radius * std::cos(angle), radius * std::sin(angle), 0.0};
}

} // namespace

void addKinds(CVekGDX& gdx, Patterns&)
{
    Place lines(gdx, 0, L"POLYLINES");
    lines.line(path({{0, 80, 0}, {30, 20, 0}, {50, 60, 0}, {80, 0, 0}}, false), 1, {}, 1);
    lines.line(path({{0, 60, 0}, {30, 0, 0}, {50, 40, 0}, {80, -4, 0}}, false), 5, dashes({8.0, -4.0, 0.0, -4.0}), 1);
    Place points(gdx, 1, L"POINTS");
    addMarks(points);
    Place outline(gdx, 2, L"OUTLINE");
    outline.region(outline.frame(), itemOutline, 152, 0, {});
    Place fill(gdx, 3, L"FILL");
    fill.region(fill.frame(), itemFill, 140, 140, {});
    Place hatch(gdx, 4, L"HATCH");
    hatch.region(hatch.frame(), itemHatch | itemOutline, 7, 30, VEK::CHatchProp(L"_USER", 0.8, 6.0, true));
    Place text(gdx, 5, L"TEXT");
    TextLook look;
    look.stack = text.stack;
    look.color = indexed(30);
    look.middle = true;
    gdx.imagePicture({}, 0, L"", kIcon, {8.0, 8.0, 0.0}, {40.0, 40.0, 0.0});
    addText(gdx, L"Abc", placed(text.x + 40.0, text.y + 26.0, 30.0), look);
}

void addArcs(CVekGDX& gdx, Patterns&)
{
    const CVekArrayTempl<double> types[] = {{}, dashes({12.0, -6.0}), dashes({20.0, -4.0, 0.0, -4.0})};
    for (int i = 0; i < 9; ++i) {
        const double x = i % 3 * kPitch, y = i / 3 * -kPitch;
        CVekVertexArray line =
            path({{x, y, 0.0}, {x + 60.0, y, 0.0}, {x + 60.0, y + 30.0, 0.0}, {x, y + 30.0, 0.0}}, true);
        for (int k = 1; k < 4; k += 2)
            line[k].bulge = (i / 3 - 1) * 0.4 + 0.6;
        CVekGDX::Stack stack;
        stack.append(i + 1);
        gdx.imageVl(stack, 0, line, indexed(kColors[i % 6]), CVekMatrix3d::kIdentity, types[i % 3], 1.0,
                    static_cast<unsigned>(i / 3 + 1), CVekPoint3d::kOrigin);
    }
}

void addLetters(CVekGDX& gdx, Patterns&)
{
    const wchar_t* const rows[] = {L"ABCDEFGHIJKLM", L"NOPQRSTUVWXYZ",
                                   L"abcdefghijklm", L"nopqrstuvwxyz",
                                   L"0123456789",    L"\u00C4\u00D6\u00DC \u00E4\u00F6\u00FC\u00DF",
                                   L"+-*/=()[]{}<>", L".,:;!?'\"#%&@_|\\"};
    TextLook look;
    for (int i = 0; i < static_cast<int>(std::size(rows)); ++i) {
        look.color = indexed(i < 4 ? 7 : kColors[i - 4]);
        look.stack = {};
        look.stack.append(i + 1);
        addText(gdx, rows[i], placed(0.0, i * -20.0, 10.0), look);
    }
}

void addAlignment(CVekGDX& gdx, Patterns&)
{
    const wchar_t* const codes[] = {L"TL", L"TC", L"TR", L"CL", L"CC", L"CR", L"", L"BC", L"BR"};
    for (int i = 0; i < 9; ++i) {
        const CVekMatrix3d place = placed(i % 3 * kPitch, i / 3 * -60.0, 10.0);
        CVekGDX::Stack stack;
        stack.append(i + 1);
        gdx.imagePt(stack, 0, CVekPoint3d::kOrigin, indexed(1), place, -15.0, 3, CVekPoint3d::kOrigin);
        gdx.imageTxt(stack, 0, L"Facade", indexed(7), place, codes[i], CVekPoint3d::kOrigin, CVekPoint3d::kOrigin);
    }
}

void addTurned(CVekGDX& gdx, Patterns&)
{
    constexpr int kRays = 16;
    for (int i = 0; i < kRays; ++i) {
        const double angle = i * 2.0 * std::numbers::pi / kRays;
        CVekMatrix3d turn;
        turn.setToRotation(angle, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
        TextLook look;
        look.stack.append(i + 1);
        look.color = indexed(kColors[i % 6]);
        addText(gdx, L"Mullion and Transom", turn * placed(40.0, 0.0, 4.0 + i * 0.5), look);
        gdx.imageVl(look.stack, 0, path({onCircle(10.0, angle), onCircle(34.0, angle)}, false), look.color,
                    CVekMatrix3d::kIdentity, {}, 1.0, 1, CVekPoint3d::kOrigin);
    }
}

void addPattern(CVekGDX& gdx, const VEK::CHatchPattern& pattern)
{
    CVekGDX::Stack stack;
    stack.append(1);
    addSample(gdx, stack, pattern, SampleLook(), CVekPoint3d::kOrigin);
}

void addPatternSheet(CVekGDX& gdx, Patterns& patterns)
{
    Sheet sheet(patterns.all().len(), {4, 3});
    int number = 0;
    for (const VEK::CHatchPattern& pattern : patterns.all()) {
        CVekGDX::Stack stack;
        stack.append(++number);
        addSample(gdx, stack, pattern, SampleLook(), sheet.next(gdx, pattern.name));
    }
}

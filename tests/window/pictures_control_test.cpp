// The control for display objects in a real window, driven by real messages.
#include "display_conformance.h"
#include "window/control_fixture.h"

#include <vek/pictures.h>

#include <cmath>
#include <limits>

namespace control_test
{
namespace
{

using namespace display_test;

class DplistImage : public Control<CVekDplistImage>
{
protected:
    void SetUp() override
    {
        open(200, 100);
        control.set_dpList(&gdx);
    }

    /// The window's pixels equal those of the same object drawn in memory.
    void expectPicture(int width, int height)
    {
        control.UpdateWindow();
        VEK::CPixels expected;
        ASSERT_TRUE(VEK::rasterPixels(expected, width, height, 0));
        VEK::gdxDraw(gdx, *VEK::rasterSurface(expected), height, width, VEK::screenRules);
        EXPECT_EQ(differing(pixelsOf(control), expected), 0);
    }

    void expectPan(double x, double y)
    {
        EXPECT_EQ(gdx.zoomMtxGet()[0][3], x);
        EXPECT_EQ(gdx.zoomMtxGet()[1][3], y);
    }

    Gdx gdx = grey();
};

TEST_F(DplistImage, PaintsWhatTheSameRulesGiveInMemory)
{
    expectPicture(200, 100); // the background alone
    int cases = 0;
    forEachConformanceCase([&](Gdx& object, const ConformanceCase& c) {
        if (c.rules != &kScreen || c.flag % 5 != 0)
            return;
        gdx = object;
        control.zoomExtents();
        control.Invalidate();
        expectPicture(200, 100);
        ++cases;
    });
    EXPECT_EQ(cases, 5 * 52);
    gdx.clear(); // under the control
    control.Invalidate();
    expectPicture(200, 100);
}

TEST_F(DplistImage, FitsOnlyWhenItIsTold)
{
    addLine(gdx, line(0, 0, 100, 50));
    CVekMatrix3d none;
    EXPECT_EQ(gdx.viewMtxGet(), none);
    control.zoomExtents();
    const CVekMatrix3d fitted = VEK::getViewMtx({0, 0, 0}, {100, 50, 0}, 100, 200, 0.05);
    EXPECT_EQ(gdx.viewMtxGet(), fitted);
    control.MoveWindow(0, 0, 320, 240);
    expectPicture(320, 240);
    EXPECT_EQ(gdx.viewMtxGet(), fitted); // a resize keeps the scale
    control.zoomExtents();
    EXPECT_EQ(gdx.viewMtxGet(), VEK::getViewMtx({0, 0, 0}, {100, 50, 0}, 240, 320, 0.05));
}

TEST_F(DplistImage, WheelZoomsAboutTheMouse)
{
    addLine(gdx, line(0, 0, 100, 50));
    control.zoomExtents();
    const CVekPoint3d mouse(60, 30, 0);
    const CVekPoint3d world = gdx.imagePtWc(mouse);
    EXPECT_EQ(wheel(120, 60, 30), TRUE);
    EXPECT_NEAR(gdx.zoomMtxGet()[0][0], 1.2, 1e-12);
    EXPECT_NEAR(gdx.imagePtWc(mouse).distanceTo(world), 0.0, 1e-9);
    expectPicture(200, 100);
    wheel(-120, 60, 30);
    EXPECT_NEAR(gdx.zoomMtxGet()[0][0], 1.0, 1e-12);
    EXPECT_NEAR(gdx.imagePtWc(mouse).distanceTo(world), 0.0, 1e-9);
    wheel(40, 0, 0); // a third of a notch upwards zooms out
    EXPECT_NEAR(gdx.zoomMtxGet()[0][0], 0.4, 1e-12);
    EXPECT_EQ(wheel(120, 0, 0, MK_MBUTTON), FALSE);
    EXPECT_NEAR(gdx.zoomMtxGet()[0][0], 0.4, 1e-12);
    control.set_dpList(nullptr);
    EXPECT_EQ(wheel(120, 0, 0), TRUE);
    EXPECT_NEAR(gdx.zoomMtxGet()[0][0], 0.4, 1e-12);
}

TEST_F(DplistImage, MiddleButtonPansBeyondTheWindowUntilItIsUp)
{
    addLine(gdx, line(0, 0, 100, 50));
    control.zoomExtents();
    wheel(120, 0, 0);
    mouse(WM_MOUSEMOVE, 3, 3);
    expectPan(0, 0);
    mouse(WM_MBUTTONDOWN, 50, 40, MK_MBUTTON);
    EXPECT_TRUE(::GetCapture() == control.m_hWnd && ::GetFocus() == control.m_hWnd);
    mouse(WM_MOUSEMOVE, 60, 45, MK_MBUTTON);
    mouse(WM_MOUSEMOVE, 70, 45); // only the button's release ends the pan
    mouse(WM_MOUSEMOVE, -30, -45, MK_MBUTTON);
    expectPan(-80, -85);
    expectPicture(200, 100);
    mouse(WM_MBUTTONUP, -30, -45);
    EXPECT_NE(::GetCapture(), control.m_hWnd);
    mouse(WM_MOUSEMOVE, 80, 80, MK_MBUTTON); // a drag that began elsewhere
    expectPan(-80, -85);
    mouse(WM_MBUTTONDBLCLK, 1, 1, MK_MBUTTON);
    EXPECT_EQ(gdx.zoomMtxGet(), CVekMatrix3d());
    mouse(WM_MOUSEMOVE, 4, -1, MK_MBUTTON); // the button is still down
    expectPan(3, -2);
}

TEST_F(DplistImage, ClickTellsTheParentTheFirstNumberOfTheStack)
{
    gdx.imageVl(path({7, 2}), 0, line(0, 0, 100, 0), kRed, kNone, doubles({}), 1.0, 1, CVekPoint3d());
    gdx.imageVl(path({3}), 0, line(0, 40, 100, 40), kRed, kNone, doubles({}), 1.0, 1, CVekPoint3d());
    control.zoomExtents();
    const CVekPoint3d onLine = CVekPoint3d(50, 0, 0) * gdx.viewMtxGet();
    click(int(onLine[0]), int(onLine[1]));
    ASSERT_EQ(parent.notifications.size(), 1u);
    EXPECT_EQ(parent.notifications[0], std::pair(WPARAM(0), LPARAM(7)));
    const CVekPoint3d between = CVekPoint3d(50, 20, 0) * gdx.viewMtxGet();
    click(int(between[0]), int(between[1]));
    EXPECT_EQ(parent.notifications.size(), 1u);
    control.set_dpList(nullptr);
    click(int(onLine[0]), int(onLine[1]));
    EXPECT_EQ(parent.notifications.size(), 1u);
    CVekDplistImage alone; // without a parent nobody is told
    ASSERT_TRUE(alone.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 200, 100), nullptr, 0));
    alone.set_dpList(&gdx);
    alone.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at(int(onLine[0]), int(onLine[1])));
    alone.DestroyWindow();
    pump();
    EXPECT_EQ(parent.notifications.size(), 1u);
}

TEST_F(DplistImage, WithoutAListNothingIsPainted)
{
    EXPECT_FALSE(control.set_dpList(nullptr));
    EXPECT_EQ(control.get_dpList(), nullptr);
    control.SendMessage(WM_PAINT);
    EXPECT_TRUE(control.GetUpdateRect(nullptr));
    control.zoomExtents();
    EXPECT_TRUE(control.set_dpList(&gdx));
    control.SendMessage(WM_PAINT);
    EXPECT_FALSE(control.GetUpdateRect(nullptr));
}

TEST_F(DplistImage, OddSizesAndMatricesEndQuickly)
{
    addLine(gdx, line(0, 0, 100, 50));
    addRegion(gdx, itemFill, square(20));
    control.zoomExtents();
    for (int i = 0; i < 60; ++i) { // past what 32 bits hold
        wheel(600, 100, 50);
        control.UpdateWindow();
    }
    expectPicture(200, 100);
    for (int i = 0; i < 120; ++i)
        wheel(-600, 100, 50);
    expectPicture(200, 100);
    CVekMatrix3d odd;
    odd[0][0] = std::numeric_limits<double>::quiet_NaN();
    gdx.zoomMtxSet(odd);
    control.Invalidate();
    control.UpdateWindow();
    gdx.zoomMtxSet(CVekMatrix3d());
    for (const int size : {0, 1, 32000}) {
        control.MoveWindow(0, 0, size, size);
        control.zoomExtents();
        control.Invalidate();
        control.UpdateWindow();
    }
    Gdx point = grey(); // extents of one point
    point.imagePt(path({}), 0, {5, 5, 0}, kRed, kNone, -4.0, 2, CVekPoint3d());
    control.MoveWindow(0, 0, 200, 100);
    control.set_dpList(&point);
    control.zoomExtents();
    EXPECT_EQ(point.viewMtxGet(), CVekMatrix3d());
    control.UpdateWindow();
}

TEST_F(DplistImage, RepaintsGiveEveryObjectBack)
{
    gdx = everything();
    control.MoveWindow(0, 0, 60, 40);
    control.zoomExtents();
    control.Invalidate();
    control.UpdateWindow();
    const int before = freeHandles();
    for (int i = 0; i < 1000; ++i) {
        control.Invalidate();
        control.UpdateWindow();
    }
    EXPECT_EQ(freeHandles(), before);
}

class VllImage : public Control<CVekVllImage>
{
protected:
    void SetUp() override
    {
        open(200, 100);
        gdx = control.get_dpList();
    }
    static CVekArrayTempl<CVekVertexArray> two() { return {line(10, 10, 60, 10), line(10, 40, 60, 40)}; }
    unsigned modeOf(int number) const
    {
        for (const CVekDisplayItem& item : gdx->getDisplayList()) {
            if (item.stack[0] == number)
                return item.colorMode();
        }
        return 99;
    }

    CVekGDX* gdx = nullptr;
};

TEST_F(VllImage, LinesContrastWithTheBackground)
{
    control.SetBkColor(RGB(127, 128, 128));
    EXPECT_EQ(gdx->colorTabGet(6).oleColor(), 0xFFFFFFu);
    control.SetBkColor(RGB(128, 128, 128));
    EXPECT_EQ(gdx->colorTabGet(6).oleColor(), 0u);
    EXPECT_EQ(gdx->backColorGet().oleColor(), static_cast<unsigned long>(RGB(128, 128, 128)));
}

TEST_F(VllImage, ShowsPolylinesAndTheBasePoint)
{
    EXPECT_TRUE(control.setVll(two()));
    EXPECT_TRUE(gdx->lenGet() == 3 && modeOf(0) == 4u && modeOf(1) == 6u);
    EXPECT_EQ(gdx->viewMtxGet(), VEK::getViewMtx({0, 0, 0}, {60, 40, 0}, 100, 200, 0.05));
    EXPECT_TRUE(control.setDrawBase(false));
    EXPECT_FALSE(control.setDrawBase(false));
    EXPECT_EQ(gdx->viewMtxGet(), VEK::getViewMtx({10, 10, 0}, {60, 40, 0}, 100, 200, 0.05));
    control.setVll(two()); // hidden from the start
    EXPECT_EQ(gdx->viewMtxGet(), VEK::getViewMtx({10, 10, 0}, {60, 40, 0}, 100, 200, 0.05));
    control.setDrawBase(true);
    control.setVll({});
    EXPECT_EQ(gdx->lenGet(), 1);
    EXPECT_EQ(gdx->viewMtxGet(), CVekMatrix3d());
}

TEST_F(VllImage, OnePolylineIsTheCurrentOne)
{
    control.setVll(two());
    EXPECT_TRUE(control.SetCurVl(1) == -1 && modeOf(2) == 1u);
    EXPECT_TRUE(control.SetCurVl(0) == 1 && modeOf(2) == 6u && modeOf(1) == 1u);
    EXPECT_TRUE(control.SetCurVl(7) == 0 && control.SetCurVl(-1) == 7 && modeOf(1) == 6u);
    const CVekPoint3d onSecond = CVekPoint3d(30, 40, 0) * gdx->viewMtxGet();
    click(int(onSecond[0]), int(onSecond[1]));
    ASSERT_EQ(parent.notifications.size(), 1u);
    EXPECT_EQ(parent.notifications[0].second, 2);
    wheel(120, 5, 5);
    control.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, at(1, 1));
    EXPECT_EQ(gdx->zoomMtxGet(), CVekMatrix3d());
}

} // namespace
} // namespace control_test

// The controls for slides and raster files in real windows.
#include "picture_bytes.h"
#include "slide_bytes.h"
#include "test_folder.h"
#include "window/control_fixture.h"
#include "window/modal_queue.h"

#include <vek/pictures.h>

#include <algorithm>
#include <filesystem>

namespace control_test
{
namespace
{

const TestFolder kFolder(L"pictures");

class SlidePic : public Control<VEK::CSlidePic>
{
protected:
    void SetUp() override
    {
        open(101, 51);
        control.SetBkColor(5);
    }
    void show(const std::vector<unsigned char>& bytes)
    {
        std::vector<unsigned char> copy = bytes;
        control.show(copy.data(), static_cast<int>(copy.size()));
    }
};

using slide_test::Bytes;

/// A red line across the middle of a slide of 256 by 512.
Bytes middleLine()
{
    return slide_test::withWords(slide_test::littleHeader(), {0xFF01, 0, 256, 256, 256, 0xFC00});
}

TEST_F(SlidePic, FitsTheSlideIntoTheWindow)
{
    EXPECT_EQ(pixel(50, 25), GetSysColor(COLOR_3DFACE)); // nothing yet
    long x = -1, y = -1;
    EXPECT_FALSE(control.getSize(x, y));
    show(middleLine());
    EXPECT_TRUE(control.getSize(x, y));
    EXPECT_EQ(x, 0); // not drawn yet
    // 50 of 512 by 100 of 256: the height decides; 25 wide, 37 to the left.
    for (const int column : {36, 37, 61, 62})
        EXPECT_EQ(pixel(column, 25), column == 36 || column == 62 ? 0xFF0000u : 0x0000FFu) << column;
    EXPECT_TRUE(control.getSize(x, y) && x == 256 && y == 512);
    EXPECT_TRUE(control.SetBkColor(3) == 1 && control.BackColor() == 3);
    control.Invalidate();
    EXPECT_EQ(pixel(10, 10), 0x00FF00u);
    control.show(nullptr, 100);
    EXPECT_EQ(pixel(50, 25), GetSysColor(COLOR_3DFACE));
}

TEST_F(SlidePic, ReadsFilesAndLibraries)
{
    const Bytes slide = middleLine();
    const std::wstring file = kFolder.save(L"a.sld", std::string(slide.begin(), slide.end()));
    EXPECT_TRUE(control.show(file.c_str(), nullptr));
    EXPECT_EQ(pixel(50, 25), 0x0000FFu);
    std::filesystem::remove(file);
    EXPECT_FALSE(control.show(file.c_str(), nullptr));
    EXPECT_EQ(pixel(50, 25), GetSysColor(COLOR_3DFACE));
    const std::wstring library = std::filesystem::path(VEK_SOURCE_DIR "/examples/facade.slb").wstring();
    EXPECT_TRUE(control.show(L"pfosten", library.c_str()));
    control.Invalidate();
    control.UpdateWindow();
    EXPECT_FALSE(control.show(L"nowhere", library.c_str()));
    EXPECT_FALSE(control.LoadSlide(12345, L"SLIDE"));
}

TEST_F(SlidePic, CopiesAMetafileForWhitePaper)
{
    show(slide_test::withWords(slide_test::littleHeader(), {0xFF07, 0, 256, 256, 256, 0xFC00}));
    control.UpdateWindow();
    ASSERT_TRUE(control.Copy());
    EXPECT_EQ(GetClipboardOwner(), control.m_hWnd);
    EXPECT_EQ(control.BackColor(), 5);
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto metafile = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    ASSERT_NE(metafile, nullptr);
    const Canvas paper(256, 512);
    const RECT whole = {0, 0, 256, 512};
    PlayEnhMetaFile(paper.dc, metafile, &whole);
    CloseClipboard();
    const VEK::CPixels drawn = paper.pixels();
    EXPECT_GT(std::count(drawn.data.begin(), drawn.data.end(), 0xFF000000), 200); // colour 7 is black there

    struct Failing : VEK::CSlidePic {
        HENHMETAFILE CreateEnhMetaFileW(CRect) override { throw 1; }
    };
    EXPECT_ANY_THROW(Failing().Copy());
    EXPECT_TRUE(OpenClipboard(control)) << "the clipboard stayed open";
    CloseClipboard();
}

class Picture : public Control<VEK::CPicture>
{
protected:
    void SetUp() override
    {
        open(101, 51);
        control.SetBackColor(0x00FF00);
    }
    /// A blue picture.
    void load(int width, int height)
    {
        std::string pixels;
        for (int i = 0; i < width * height; ++i)
            pixels += picture_bytes::le(0xFF, 4);
        const std::string bytes = picture_bytes::bmp(picture_bytes::info(width, height, 32), pixels);
        EXPECT_TRUE(control.LoadImage(kFolder.save(L"a.bmp", bytes).c_str()));
    }

    ModalQueue user;
};

constexpr unsigned kBlue = 0xFF0000, kGreen = 0x00FF00;

TEST_F(Picture, StandsInTheMiddleAndIsReducedToFit)
{
    control.Invalidate();
    EXPECT_EQ(pixel(50, 25), kGreen);
    load(40, 20); // from (30, 15) on
    EXPECT_TRUE(pixel(30, 15) == kBlue && pixel(69, 34) == kBlue);
    EXPECT_TRUE(pixel(29, 15) == kGreen && pixel(71, 36) == kGreen);
    load(404, 40); // four times as wide as the window, so ten pixels high from 20 on
    EXPECT_TRUE(pixel(2, 25) == kBlue && pixel(98, 25) == kBlue);
    EXPECT_TRUE(pixel(50, 18) == kGreen && pixel(50, 32) == kGreen);
}

TEST_F(Picture, PansAndZooms)
{
    load(40, 20);
    mouse(WM_MOUSEMOVE, 20, 10, MK_MBUTTON); // a drag that began elsewhere
    EXPECT_EQ(pixel(30, 15), kBlue);
    mouse(WM_MBUTTONDOWN, 40, 20, MK_MBUTTON);
    EXPECT_EQ(::GetCapture(), control.m_hWnd);
    mouse(WM_MOUSEMOVE, 35, 15); // only the button's release ends the pan
    mouse(WM_MOUSEMOVE, 20, 10, MK_MBUTTON);
    control.Invalidate(); // a paint that waits is taken from the queue
    mouse(WM_MBUTTONUP, 20, 10);
    EXPECT_NE(::GetCapture(), control.m_hWnd);
    mouse(WM_MOUSEMOVE, 90, 50, MK_MBUTTON);
    control.Invalidate();
    EXPECT_TRUE(pixel(10, 5) == kBlue && pixel(60, 30) == kGreen);
    control.Reset();
    EXPECT_EQ(wheel(120, 30, 15), TRUE); // about its corner
    EXPECT_TRUE(pixel(30, 15) == kBlue && pixel(89, 44) == kBlue && pixel(29, 15) == kGreen);
    int steps = 1;
    while (wheel(120, 30, 15))
        ++steps;
    EXPECT_EQ(steps, 8);
}

TEST_F(Picture, AFileThatCannotBeReadIsTold)
{
    EXPECT_FALSE(control.LoadImage(nullptr));
    const std::pair<std::wstring, DWORD> cases[] = {
        {kFolder.name(L"none.bmp"), ERROR_FILE_NOT_FOUND},
        {kFolder.save(L"text.bmp", "no picture at all"), ERROR_INVALID_DATA}};
    for (const auto& [path, error] : cases) {
        load(40, 20);
        EXPECT_TRUE(control.hasPicture());
        wchar_t expected[260] = L"";
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error, 0, expected, 260, nullptr);
        user.box(expected);
        EXPECT_TRUE(control.LoadImage(path.c_str()));
        EXPECT_NE(user.lastBox, L"");
        EXPECT_EQ(user.lastCaption, L"CPicture::LoadImage");
        EXPECT_EQ(pixel(50, 25), kGreen);
        EXPECT_FALSE(control.hasPicture());
        EXPECT_FALSE(control.Copy());
    }
}

TEST_F(Picture, CopiesTheWholePicture)
{
    load(40, 20);
    ASSERT_TRUE(control.Copy());
    EXPECT_EQ(GetClipboardOwner(), control.m_hWnd);
    ASSERT_TRUE(OpenClipboard(nullptr));
    ENHMETAHEADER header = {};
    GetEnhMetaFileHeader(static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE)), sizeof header, &header);
    CloseClipboard();
    EXPECT_NEAR(header.rclBounds.right, 39, 1);
    EXPECT_NEAR(header.rclBounds.bottom, 19, 1);
    const int before = freeHandles();
    for (int i = 0; i < 200; ++i) {
        control.Invalidate();
        control.UpdateWindow();
    }
    EXPECT_EQ(freeHandles(), before);
}

/// A drawing must not stand mirrored, nor picks with it.
template <class Window>
void expectLeftToRight()
{
    Parent parent;
    ASSERT_TRUE(
        parent.CreateEx(WS_EX_LAYOUTRTL, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 300, 200), nullptr, 0));
    const CRect place(10, 10, 110, 60);
    for (const bool isTakenOver : {false, true}) {
        Window control;
        if (isTakenOver)
            control.SubclassWindow(
                CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 10, 10, 100, 50, parent, nullptr, nullptr, nullptr));
        else
            control.Create(AfxRegisterWndClass(0), L"", WS_CHILD, place, &parent, kControlId);
        CPoint left(0, 0), right(9, 0);
        control.ClientToScreen(&left);
        control.ClientToScreen(&right);
        EXPECT_EQ(right.x - left.x, 9);
        EXPECT_EQ(CClientDC(&control).GetLayout(), 0u);
        control.DestroyWindow();
    }
}

TEST(PictureControls, RunFromLeftToRightInAnyParent)
{
    expectLeftToRight<CVekDplistImage>();
    expectLeftToRight<VEK::CSlidePic>();
    expectLeftToRight<VEK::CPicture>();
}

} // namespace
} // namespace control_test

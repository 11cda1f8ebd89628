#include <afxext.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace
{

class Canvas : public CDC
{
public:
    Canvas()
    {
        CreateCompatibleDC(nullptr);
        HDC screen = ::GetDC(nullptr);
        bitmap.Attach(::CreateCompatibleBitmap(screen, 40, 30));
        ::ReleaseDC(nullptr, screen);
        before = SelectObject(&bitmap);
        PatBlt(0, 0, 40, 30, WHITENESS);
    }
    ~Canvas() override { SelectObject(before); }

    CBitmap bitmap;
    CBitmap* before = nullptr;
};

} // namespace

TEST(ToolkitDrawing, KnowsClassesAtRunTime)
{
    CPen pen;
    EXPECT_TRUE(pen.IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_TRUE(pen.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(pen.IsKindOf(RUNTIME_CLASS(CBrush)));
    EXPECT_STREQ(pen.GetRuntimeClass()->m_lpszClassName, "CPen");
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CBrush)->CreateObject());
    EXPECT_NE(DYNAMIC_DOWNCAST(CBrush, made.get()), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CPen, made.get()), nullptr);
    EXPECT_EQ(RUNTIME_CLASS(CMetaFileDC)->CreateObject(), nullptr);
}

TEST(ToolkitDrawing, FindsTheOwnerOfAHandle)
{
    CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
    const HPEN handle = pen;
    EXPECT_EQ(CPen::FromHandle(handle), &pen);
    EXPECT_EQ(pen.Detach(), handle);
    CPen* temporary = CPen::FromHandle(handle);
    EXPECT_NE(temporary, &pen);
    EXPECT_TRUE(temporary->IsKindOf(RUNTIME_CLASS(CPen)) && CPen::FromHandle(handle) == temporary);
    CGdiObject::DeleteTempMap();
    EXPECT_EQ(::GetObjectType(handle), DWORD(OBJ_PEN)) << "a temporary object owns nothing";
    HGDIOBJ owned[] = {handle, nullptr, nullptr};
    {
        CPen owner;
        owner.Attach(handle);
        EXPECT_EQ(CPen::FromHandle(handle), &owner);
        Canvas dc;
        owned[1] = dc.m_hDC;
        owned[2] = dc.bitmap.GetSafeHandle();
        EXPECT_EQ(CDC::FromHandle(dc.m_hDC), &dc);
    }
    for (const HGDIOBJ each : owned)
        EXPECT_EQ(::GetObjectType(each), 0u) << "an owner deletes";
    EXPECT_EQ(CPen::FromHandle(nullptr), nullptr);
}

TEST(ToolkitDrawing, ForgetsTemporaryObjectsOfDeadHandlesInTime)
{
    const HBRUSH kept = ::CreateSolidBrush(0);
    CBrush* object = CBrush::FromHandle(kept);
    std::vector<std::pair<HWND, CWnd*>> dead;
    for (int i = 0; i < 1000; ++i) {
        const HWND window =
            ::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        dead.emplace_back(window, CWnd::FromHandle(window));
        ::DestroyWindow(window);
    }
    for (const auto& [window, held] : dead)
        ASSERT_EQ(held->m_hWnd, window) << "not while somebody may hold it";
    MSG message; // in the loop of a program that knows nothing of the toolkit
    for (const ULONGLONG end = ::GetTickCount64() + 200; ::GetTickCount64() < end; ::Sleep(1)) {
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageW(&message);
    }
    std::vector<std::unique_ptr<CWnd>> others; // take the places of some that have gone
    for (int i = 0; i < 10; ++i)
        others.push_back(std::make_unique<CWnd>());
    const auto same = [](const auto& each) { return CWnd::FromHandle(each.first) == each.second; };
    EXPECT_LT(std::count_if(dead.begin(), dead.end(), same), 1000);
    EXPECT_EQ(CBrush::FromHandle(kept), object) << "and not those of others";
    ::DeleteObject(kept);
}

TEST(ToolkitDrawing, GivesBackWhatWasSelected)
{
    Canvas dc;
    EXPECT_EQ(dc.GetCurrentBitmap(), &dc.bitmap);
    CPen red(PS_SOLID, 1, RGB(255, 0, 0)), green(PS_SOLID, 1, RGB(0, 255, 0));
    CPen* first = dc.SelectObject(&red);
    EXPECT_EQ(dc.SelectObject(&green), &red);
    EXPECT_EQ(dc.SelectStockObject(NULL_PEN), &green);
    EXPECT_EQ(static_cast<HPEN>(*dc.SelectObject(first)), ::GetStockObject(NULL_PEN));
    EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
    EXPECT_EQ(dc.SetBkColor(RGB(9, 9, 9)), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetBkColor(), RGB(9, 9, 9));
    EXPECT_EQ(dc.MoveTo(3, 4), CPoint(0, 0));
    EXPECT_EQ(dc.MoveTo(5, 6), CPoint(3, 4));
}

/// A metafile draws into the file and asks the other context, which it settles as well.
TEST(ToolkitDrawing, KeepsWhatAContextHasInBothOfAMetafile)
{
    Canvas screen;
    CMetaFileDC file;
    ASSERT_TRUE(file.CreateEnhanced(nullptr, nullptr, nullptr, nullptr) && !file.m_hAttribDC);
    file.SetAttribDC(screen);
    for (CDC* dc : {static_cast<CDC*>(&screen), static_cast<CDC*>(&file)}) {
        CRgn own;
        own.CreateRectRgn(5, 5, 20, 15);
        EXPECT_EQ(dc->SelectClipRgn(&own), SIMPLEREGION);
        own.OffsetRgn(100, 100); // the context has a copy
        CRect box;
        dc->GetClipBox(&box);
        EXPECT_EQ(box, CRect(5, 5, 20, 15));
        dc->SaveDC();
        EXPECT_EQ(dc->IntersectClipRect(0, 0, 10, 30), SIMPLEREGION);
        EXPECT_EQ(dc->ExcludeClipRect(0, 0, 10, 8), SIMPLEREGION);
        dc->GetClipBox(&box);
        EXPECT_EQ(box, CRect(5, 8, 10, 15));
        EXPECT_FALSE(dc->PtVisible(12, 10));
        EXPECT_TRUE(dc->RestoreDC(-1));
        dc->GetClipBox(&box);
        EXPECT_EQ(box, CRect(5, 5, 20, 15));
    }
    file.SetTextColor(RGB(1, 2, 3));
    EXPECT_EQ(screen.GetTextColor(), RGB(1, 2, 3));
    file.MoveTo(6, 6);
    file.LineTo(19, 6);
    EXPECT_EQ(file.GetCurrentPosition(), CPoint(19, 6));
    EXPECT_EQ(screen.GetPixel(10, 6), RGB(255, 255, 255)) << "drawn into the file only";
    const HENHMETAFILE closed = file.CloseEnhanced();
    ENHMETAHEADER header = {};
    EXPECT_TRUE(closed && !file.m_hDC && ::GetEnhMetaFileHeader(closed, sizeof header, &header));
    EXPECT_EQ(header.rclBounds.right, 19);
    ::DeleteEnhMetaFile(closed);
    screen.FillSolidRect(0, 0, 40, 30, 0);
    EXPECT_TRUE(screen.GetPixel(5, 5) == 0 && screen.GetPixel(4, 5) == RGB(255, 255, 255));
}

TEST(ToolkitString, CutsFindsAndFills)
{
    CString text(L"  one two one ");
    EXPECT_EQ(text.Trim(), L"one two one");
    EXPECT_EQ(text.Find(L"one", 1), 8);
    EXPECT_EQ(text.ReverseFind(L'o'), 8);
    EXPECT_EQ(text.Find(L'x'), -1);
    EXPECT_EQ(text.Mid(4, 3), L"two");
    EXPECT_EQ(text.Right(99), text);
    EXPECT_EQ(text.Replace(L"one", L"a"), 2);
    EXPECT_EQ(text, L"a two a");
    int at = 0;
    EXPECT_EQ(text.Tokenize(L" ", at), L"a");
    EXPECT_EQ(text.Tokenize(L" ", at), L"two");
    EXPECT_EQ(text.Tokenize(L" ", at), L"a");
    EXPECT_EQ(text.Tokenize(L" ", at), L"");
    EXPECT_EQ(at, -1);
    text.Format(L"%s has %d", L"Wide", 7);
    EXPECT_EQ(text, L"Wide has 7");
    wcscpy(text.GetBuffer(50), L"short");
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 5);
    EXPECT_EQ(CString(L"Ab").CompareNoCase(L"aB"), 0);
}

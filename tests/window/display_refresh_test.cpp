// The export on Windows: files that the system writes, and the clipboard.
#include "display_conformance.h"
#include "window/metafile_player.h"

#include <atomic>
#include <filesystem>
#include <thread>

namespace display_test
{
namespace
{

class Refresh : public testing::Test
{
protected:
    std::string bytes() const { return m_folder.read(L"a.emf"); }

    const TestFolder m_folder{L"refresh"};
    const std::wstring file = m_folder.name(L"a.emf");
};

TEST_F(Refresh, TheSystemsFileShowsWhatOursDoes)
{
    constexpr int kHeight = 100, kWidth = 200;
    int cases = 0;
    forEachConformanceCase([&](Gdx& gdx, const ConformanceCase& c) {
        if (c.rules != &VEK::paperRules || c.flag % 5 != 0)
            return;
        ++cases;
        ::refresh(&gdx, file.c_str(), kHeight, kWidth);
        VEK::CMemorySink sink;
        const auto surface = VEK::emfSurface(sink);
        VEK::gdxDraw(gdx, *surface, kHeight, kWidth, VEK::paperRules);
        ASSERT_TRUE(surface->finish());
        ENHMETAHEADER header = {};
        EXPECT_EQ(playedPixels(bytes(), kWidth, kHeight, header), playedPixels(sink.bytes(), kWidth, kHeight, header))
            << c.kind << ' ' << c.flag;
    });
    EXPECT_EQ(cases, 5 * 52);
}

TEST_F(Refresh, TwiceGivesTheSameFileAndAnUnwritablePathNone)
{
    Gdx gdx = everything();
    ::refresh(&gdx, file.c_str(), 0, 0);
    const std::string first = bytes();
    ::refresh(&gdx, file.c_str(), 0, 0);
    EXPECT_GT(first.size(), 1000u);
    EXPECT_EQ(bytes(), first);
    const std::wstring nowhere = file + L"/below/a file.emf";
    gdx.viewMtxSet(CVekMatrix3d());
    ::refresh(&gdx, nowhere.c_str(), 0, 0);
    EXPECT_FALSE(std::filesystem::exists(nowhere));
    EXPECT_NE(gdx.viewMtxGet(), CVekMatrix3d()); // sorted and fitted all the same
    ::refresh(nullptr, file.c_str(), 0, 0);
    EXPECT_EQ(bytes(), first);
}

/// The number of records on the clipboard, 0 without a metafile there.
unsigned clipboardRecords()
{
    ENHMETAHEADER header = {};
    if (!OpenClipboard(nullptr))
        return 0;
    const auto metafile = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    if (metafile)
        GetEnhMetaFileHeader(metafile, sizeof header, &header);
    CloseClipboard();
    return header.nRecords;
}

TEST_F(Refresh, GoesToTheClipboardUnlessSomebodyHoldsIt)
{
    Gdx gdx = everything();
    ::refresh(&gdx, nullptr, 240, 320);
    const unsigned records = clipboardRecords();
    EXPECT_GT(records, 60u);

    Gdx other = grey();
    addLine(other, line(0, 0, 9, 9));
    std::atomic<bool> held = false, done = false;
    std::thread holder([&] {
        const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        held = OpenClipboard(window) != FALSE;
        while (!done)
            Sleep(5);
        CloseClipboard();
        DestroyWindow(window);
    });
    for (int i = 0; i < 400 && !held; ++i)
        Sleep(5);
    EXPECT_TRUE(held);
    ::refresh(&other, nullptr, 240, 320);
    done = true;
    holder.join();
    EXPECT_EQ(clipboardRecords(), records);
    ::refresh(&other, nullptr, 240, 320);
    EXPECT_LT(clipboardRecords(), 20u);
}

} // namespace
} // namespace display_test

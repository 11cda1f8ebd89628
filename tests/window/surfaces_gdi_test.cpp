// The system's own player of metafiles as an independent reader: what it draws from our file is compared, pixel by
// pixel, with the same calls made on its device context.
#include <vek/surfaces.h>

#include "surfaces_scene.h"
#include "window/metafile_player.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace
{

constexpr int kWidth = 320, kHeight = 240;

class Player : public testing::Test
{
protected:
    template <class Calls>
    void compare(Calls calls)
    {
        calls(*VEK::gdiSurface(m_expected.dc));
        VEK::CMemorySink sink;
        const auto surface = VEK::emfSurface(sink);
        calls(*surface);
        ASSERT_TRUE(surface->finish());
        ENHMETAHEADER header = {};
        const VEK::CPixels expected = m_expected.pixels(), played = playedPixels(sink.bytes(), kWidth, kHeight, header);
        int differing = 0, drawn = 0;
        RECT bounds = {kWidth, kHeight, -1, -1};
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                differing += played.at(x, y) != expected.at(x, y);
                if (expected.at(x, y) == 0xFFFFFFFF)
                    continue;
                ++drawn;
                bounds = {std::min<LONG>(bounds.left, x), std::min<LONG>(bounds.top, y),
                          std::max<LONG>(bounds.right, x), std::max<LONG>(bounds.bottom, y)};
            }
        }
        EXPECT_GT(drawn, 0);
        EXPECT_EQ(differing, 0) << "of " << drawn << " pixels drawn";
        EXPECT_LE(header.rclBounds.left, bounds.left);
        EXPECT_LE(header.rclBounds.top, bounds.top);
        EXPECT_GE(header.rclBounds.right, bounds.right);
        EXPECT_GE(header.rclBounds.bottom, bounds.bottom);
    }

    Canvas m_expected{kWidth, kHeight}, m_played{kWidth, kHeight};
};

TEST_F(Player, DrawsTheSceneToThePixel)
{
    compare([](VEK::CSurface& s) { drawScene(s, false); });
}

TEST_F(Player, DrawsWideRunsAndSteepLinesToThePixel)
{
    compare([](VEK::CSurface& s) {
        s.clipTo(0, 0, kWidth, kHeight);
        for (int i = 0; i < 12; ++i) {
            s.pen(1 + i / 3, 0x400000u + 9000u * static_cast<unsigned>(i));
            s.moveTo(20 + 20 * i, 20);
            for (int k = 1; k < 9; ++k)
                s.lineTo(20 + 20 * i + 9 * (k % 3), 20 + 7.3 * k * (i % 4 + 1));
            s.lineTo(20 + 20 * i, 20);
        }
        s.lineTo(-1e6, 3e5);
        s.lineTo(-70000, 100);
        s.lineTo(160, 120);
    });
}

/// A surface on a context that has a clip draws what it draws without one, as far as the clip lets it.
TEST_F(Player, KeepsToTheClipOfTheContext)
{
    const HRGN clip = CreateEllipticRgn(20, 10, 300, 200);
    for (const bool clips : {false, true}) { // of its own, too
        const auto calls = [clips](VEK::CSurface& s) {
            const VEK::SurfacePoint hole[] = {{100, 60}, {200, 60}, {150, 160}};
            if (!clips)
                s.clipOut(hole, 3);
            s.solidRect(0, 0, kWidth, 30, 0xFF);
            s.clipRestore();
            if (clips)
                drawScene(s);
            s.solidRect(0, 180, kWidth, 20, 0xFF00);
        };
        m_expected.clear();
        m_played.clear();
        calls(*VEK::gdiSurface(m_expected.dc));
        SelectClipRgn(m_played.dc, clip);
        calls(*VEK::gdiSurface(m_played.dc));
        const HRGN after = CreateRectRgn(0, 0, 0, 0);
        EXPECT_EQ(GetClipRgn(m_played.dc, after), 1);
        EXPECT_TRUE(EqualRgn(after, clip)); // given back
        DeleteObject(after);
        SelectClipRgn(m_played.dc, nullptr);
        const VEK::CPixels whole = m_expected.pixels(), part = m_played.pixels();
        int differing = 0, left = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const bool isIn = PtInRegion(clip, x, y);
                differing += part.at(x, y) != (isIn ? whole.at(x, y) : 0xFFFFFFFF);
                left += !isIn && whole.at(x, y) != 0xFFFFFFFF;
            }
        }
        EXPECT_EQ(differing, 0);
        EXPECT_GT(left, 500);
    }
    DeleteObject(clip);
}

/// In a metafile what is left out is a matter of the clip, which readers agree on, and not of masks.
TEST(MetafileContext, TakesPicturesWithTheLeftOutPixelsCutFromTheClip)
{
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    VEK::gdiSurface(dc)->picture(20.0, 10.0, ringPicture(true));
    const HENHMETAFILE file = CloseEnhMetaFile(dc);
    struct Found {
        std::vector<DWORD> operations;
        RECT clip = {};
    } found;
    const auto look = [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data) {
        auto& result = *reinterpret_cast<Found*>(data);
        if (record->iType == EMR_BITBLT)
            result.operations.push_back(reinterpret_cast<const EMRBITBLT*>(record)->dwRop);
        if (record->iType == EMR_EXTSELECTCLIPRGN && result.operations.empty()) {
            const auto* clip = reinterpret_cast<const EMREXTSELECTCLIPRGN*>(record);
            if (clip->cbRgnData > 0)
                result.clip = reinterpret_cast<const RGNDATA*>(clip->RgnData)->rdh.rcBound;
        }
        return 1;
    };
    EXPECT_TRUE(EnumEnhMetaFile(nullptr, file, look, &found, nullptr));
    DeleteEnhMetaFile(file);
    EXPECT_EQ(found.operations, std::vector<DWORD>{SRCCOPY});
    EXPECT_EQ(found.clip.left, 20 + 3); // the ring reaches 53 half pixels from the middle between 29 and 30
    EXPECT_EQ(found.clip.right, 20 + 57);
}

} // namespace

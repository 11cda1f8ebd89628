// Painting, picking and group operations by the index of a list, beside a list that has none.
#include "display_hash.h"
#include "display_pass.h"

#include <vek/data.h>
#include <vek/host.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace
{

using namespace display_test;

/// A display object whose list has no index: an item is in somebody's hands.
class Lent : public Gdx
{
public:
    using Gdx::Gdx;
    void lend() { displayList.begin(); }
};

/// What is drawn, each pen where it first draws: the index leaves out those of lines outside the window.
std::string drawnBy(Gdx& gdx, Rules rules)
{
    std::string text, pen, used;
    std::istringstream all(draw(gdx, rules).text());
    for (std::string call; std::getline(all, call);) {
        if (call.starts_with("pen ")) {
            pen = call + "\n";
            continue;
        }
        if (pen != used && !call.starts_with("brush") && call != "noBrush")
            text += used = pen;
        text += call + "\n";
    }
    return text;
}

class Twins
{
public:
    explicit Twins(unsigned seed) : m_engine(seed) {}

    int lines = 0; ///< drawn in all

    void play(int steps)
    {
        for (int i = random(40); i > 0; --i)
            emit();
        for (int step = 0; step < steps && !::testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE(::testing::Message() << "step " << step);
            change();
            compare();
        }
    }

private:
    int random(int below) { return static_cast<int>(m_engine() % static_cast<unsigned>(below)); }
    double number(double most) { return std::round(most * (2.0 * random(10001) / 10000.0 - 1.0)) / (random(2) + 1); }
    /// At one of two edges of the window now and then.
    double place(int edge) { return random(2) ? number(150) : edge * random(2) + random(25) - 12.0; }
    CVekPoint3d point() { return {place(200), place(100), random(3) ? 0.0 : number(50)}; }
    CVekArrayTempl<int> anyPath()
    {
        if (random(6) == 0)
            return {};
        return random(3) ? CVekArrayTempl<int>{random(9)} : CVekArrayTempl<int>{random(9), random(3)};
    }
    CVekMatrix3d matrix()
    {
        CVekMatrix3d m, turn;
        switch (random(8)) {
        case 0: return m.setToTranslation({number(50), number(50), number(50)});
        case 1: return m.setToRotation(number(3), {1, number(2), number(2)}, point());
        case 2: return m.setToScaling(random(4) ? -0.5 : 0.0, point());
        case 3: return turn.setToRotation(number(3), CVekVector3d::kZAxis, point()) * m.setToScaling(2.0, point());
        default: return m;
        }
    }
    unsigned long flag()
    {
        static constexpr unsigned kFlags[] = {0, 0, 0, 0, itemHidden, itemNoExt, itemScreenFixed, itemOutline};
        static constexpr unsigned kModes[] = {0, 0, 0, 1, 2, 3, 9, 15};
        return kFlags[random(8)] | kModes[random(8)] << itemColorModeShift;
    }
    CVekVertexArray polyline()
    {
        CVekVertexArray vl;
        CVekPoint3d at = point();
        for (int i = random(7); i > 0; --i) {
            const CVekPoint3d to = random(5) ? point() : at + CVekVector3d(0.1, 0, 0);
            vl.append(CVekVertex(at, to, random(9) ? 0.0 : number(2)));
            at = random(9) ? to : random(2) ? point() : to + CVekVector3d(1e-8, 0, 0);
        }
        if (random(50) == 0)
            vl.append(CVekVertex(at, {std::nan(""), 1, 0}));
        if (random(4) == 0)
            vl.setNormal({number(1), number(1), random(2) ? -1.0 : 0.5});
        return vl;
    }
    template <class Act>
    void both(Act&& act)
    {
        act(m_indexed);
        act(m_plain);
        m_plain.lend();
    }
    /// Clears one, and takes a fresh one in place of the other, whose items had no items before them.
    void begin()
    {
        m_indexed.clear();
        Lent fresh(m_indexed.backColorGet(), m_indexed.projMtxGet(), 0.0, 0, {}, {});
        fresh.viewDirectionMtxSet(m_indexed.viewDirectionMtxGet());
        fresh.zoomMtxSet(m_indexed.zoomMtxGet());
        for (int mode = 1; mode <= m_indexed.ColorTabLenGet(); ++mode)
            fresh.ColorTabSet(mode, m_indexed.colorTabGet(mode));
        m_plain = fresh;
        for (int i = random(40); i > 0; --i)
            emit();
        ASSERT_EQ(hashOf(m_indexed), hashOf(m_plain));
    }
    void emit()
    {
        static const CVekArrayTempl<double> kTypes[] = {{}, {1.0}, {1, 0, 0}, {5.0}, {4, -3}, {1, 1, 0}};
        const CVekArrayTempl<int> stack = anyPath();
        const unsigned long bits = flag();
        const CVekColor color = random(4) ? rgb(static_cast<unsigned long>(random(3)) * 0x606060) : CVekColor();
        const CVekMatrix3d m = random(3) ? m_last : m_last = matrix();
        const CVekPoint3d at = point();
        const CVekVertexArray vl = polyline();
        const CVekArrayTempl<double>& type = kTypes[random(6)];
        const unsigned long width = static_cast<unsigned long>(random(4) ? 1 : random(9));
        switch (random(15)) {
        case 0: both([&](Gdx& gdx) { gdx.imagePt(stack, bits, at, color, m, 3.0, 2, point0()); }); break;
        case 1: both([&](Gdx& gdx) { gdx.imageTxt(stack, bits, L"AB", color, m, L"CC", at, point0()); }); break;
        case 2:
            both([&](Gdx& gdx) {
                gdx.imageReg(stack, bits | itemOutline, {box(at[0], at[1], 20), box(at[0] + 5, at[1] + 5, 5)}, color, m,
                             type, 1.0, width, color, {}, point0());
            });
            break;
        case 3:
            both([&](Gdx& gdx) { gdx.imagePicture(stack, bits, L"p.bmp", 3, at, bits % 3 != 0 ? at : point0()); });
            break;
        case 4:
            both([&](Gdx& gdx) { gdx.imageVl(stack, bits, CVekVertexArray(vl), color, m, type, 1.0, width, at); });
            break;
        case 5: {
            CVekVertexArray letter = box(at[0], at[1], 20);
            letter.removeAt(random(9)); // of its four sides, or none
            shapedText(stack, bits, {{letter, box(at[0], at[1], 5)}, {random(2) ? letter : polyline()}}, color, m);
            break;
        }
        default: both([&](Gdx& gdx) { gdx.imageVl(stack, bits, vl, color, m, type, 1.0, width, point0()); });
        }
    }
    /// A text whose glyphs come from the host.
    void shapedText(const CVekArrayTempl<int>& stack, unsigned long bits, const VEK::Regions& glyphs,
                    const CVekColor& color, const CVekMatrix3d& m)
    {
        CVekLocalApp host;
        host.functionSet(L"vek_text_to_regl", [&](resbuf*, VEK::CUniqResbuf& result) {
            result.append(VEK::mkResbuf(glyphs));
            return 5100;
        });
        CVekApp* const before = vekAppSet(&host);
        CVekDataItem text;
        VEK::dataSet(&text, L"TEXT", L"A");
        both([&](Gdx& gdx) { EXPECT_TRUE(gdx.imageTxt(stack, bits, &text, color, m, 1.0, point0())); });
        vekAppSet(before);
    }
    static CVekPoint3d point0() { return {3, 4, 0}; }

    void change()
    {
        const CVekArrayTempl<int> stack = anyPath();
        const CVekMatrix3d m = matrix();
        switch (random(16)) {
        case 0: emit(); break;
        case 1: both([&](Gdx& gdx) { gdx.mtxSet(stack, m); }); break;
        case 2: both([&, code = random(12)](Gdx& gdx) { gdx.propSet(stack, code); }); break;
        case 3: both([&, mode = random(4)](Gdx& gdx) { gdx.cModeSet(stack, static_cast<unsigned>(mode)); }); break;
        case 4:
            both([&](Gdx& gdx) {
                gdx.pdSizeSet(stack, 9.0);
                gdx.pdModeSet(stack, 34);
                gdx.txtSet(stack, L"C");
                gdx.hatchSet(stack, VEK::CHatchProp(L"_USER", 1.0, 5.0, false));
            });
            break;
        case 5:
            if (random(3) == 0)
                both([&](Gdx& gdx) { gdx.removeItemStack(stack); });
            break;
        case 6:
            if (random(4) == 0)
                begin();
            break;
        case 7: {
            static constexpr const wchar_t* kViews[] = {L"P", L"P", L"S", L"SO", L"NW"};
            both([view = kViews[random(5)]](Gdx& gdx) { ASSERT_TRUE(gdx.viewDirectionSet(view)); });
            break;
        }
        case 8: both([&](Gdx& gdx) { gdx.zoomMtxSet(m); }); break;
        case 9: both([&](Gdx& gdx) { gdx.projMtxSet(m); }); break;
        case 10:
            both([&](Gdx& gdx) {
                gdx.backColorSet(rgb(0x606060));
                gdx.ColorTabSet(1, rgb(0x00FF00));
            });
            break;
        case 11: m_indexed = Gdx(m_indexed); break;
        case 12: both([at = random(m_indexed.lenGet() + 2) - 1](Gdx& gdx) { gdx.removeItem(at); }); break;
        case 13: both([at = random(m_indexed.lenGet() + 1) - 1](Gdx& gdx) { gdx.flagSet(at, propHide); }); break;
        default: {
            const CVekPoint3d at(number(250), number(250), 0);
            int picked[2];
            int* next = picked;
            both([&](Gdx& gdx) { *next++ = gdx.imageItemGet(at); });
            ASSERT_EQ(picked[0], picked[1]);
        }
        }
    }
    void compare()
    {
        const CVekArrayTempl<int> stack = anyPath();
        ASSERT_EQ(m_indexed.StackToItemNr(stack), m_plain.StackToItemNr(stack));
        if (random(4) == 0)
            m_plain.refresh_ext(); // anew, all of it
        CVekPoint3d corners[4];
        ASSERT_EQ(m_indexed.extmaxGet(corners[0], corners[1]), m_plain.extmaxGet(corners[2], corners[3]));
        ASSERT_TRUE(corners[0] == corners[2] && corners[1] == corners[3]);
        if (random(3) == 0)
            return;
        const PassRules& rules = random(3) ? kScreen : kPaper;
        const std::string drawn = drawnBy(m_indexed, rules);
        ASSERT_EQ(drawn, drawnBy(m_plain, rules));
        m_plain.lend();
        for (std::size_t at = 0; (at = drawn.find("\nlineTo", at)) != std::string::npos; ++at)
            ++lines;
    }

    std::mt19937 m_engine;
    Gdx m_indexed = grey();
    Lent m_plain{rgb(kBack), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d()};
    CVekMatrix3d m_last;
};

TEST(DisplayIndex, IsSeenInNoPictureAndNoPick)
{
    int lines = 0;
    for (unsigned seed = 0; seed < 100 && !HasFailure(); ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        Twins twins(seed);
        twins.play(40);
        lines += twins.lines;
    }
    EXPECT_GT(lines, 5000);
}

/// Beyond the items at which a pick looks first, and at the borders of the blocks by which extents are measured.
TEST(DisplayIndex, SeesLongListsToTheirEnds)
{
    constexpr int kCount = 3000;
    Gdx indexed = grey();
    Lent lent(rgb(kBack), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
    Gdx* const both[] = {&indexed, &lent};
    std::mt19937 engine(1);
    const auto random = [&](int below) { return static_cast<int>(engine() % static_cast<unsigned>(below)); };
    for (int i = 0; i < kCount; ++i) {
        const double x = 20.0 * (i % 60), y = 20.0 * (i / 60);
        for (Gdx* gdx : both)
            gdx->imageVl(path({i}), 0, line(x, y, x + 8, y), kRed, kNone, {}, 1.0, 1, {});
    }
    int hits = 0;
    for (int round = 0; round < 200; ++round) {
        const int one = std::clamp(256 * random(12) + random(3) - 1, 0, kCount - 1);
        const CVekPoint3d at(random(1200), random(1000), 0);
        const CVekMatrix3d m = CVekMatrix3d().setToTranslation({random(3000) - 900.0, random(3000) - 900.0, 0});
        std::tuple<int, CVekPoint3d, CVekPoint3d> seen[2];
        for (int k = 0; k < 2; ++k) {
            auto& [picked, min, max] = seen[k];
            if (round % 3 != 0)
                both[k]->mtxSet(path({one}), m);
            else
                both[k]->propSet(path({one}), round % 2 != 0 ? propNoExt : propExt);
            picked = both[k]->imageItemGet(at);
            ASSERT_TRUE(both[k]->extmaxGet(min, max));
            lent.lend();
        }
        ASSERT_TRUE(seen[0] == seen[1]) << round;
        hits += std::get<0>(seen[0]) >= 0;
    }
    EXPECT_GT(hits, 60);
}

/// Who holds an item may write at any time, before or after a paint.
TEST(DisplayIndex, SeesWhatTheHolderOfAnItemWrites)
{
    class Open : public Gdx
    {
    public:
        using CVekGDX::displayList;
        using Gdx::Gdx;
    };
    Open gdx(rgb(kBack), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
    addLine(gdx, line(0, 0, 10, 10));
    const std::string before = calls(gdx, kScreen);
    CVekDisplayItem& held = gdx.displayList[0];
    held.thickn = 3;
    EXPECT_NE(calls(gdx, kScreen), before);
    held.thickn = 1;
    EXPECT_EQ(calls(gdx, kScreen), before);
    held.stack = path({7});
    EXPECT_EQ(gdx.StackToItemNr(path({7})).len(), 1);
    held.vl = line(100, 0, 110, 0);
    EXPECT_EQ(gdx.imageItemGet({5, 5, 0}), -1);
    EXPECT_EQ(gdx.imageItemGet({105, 0, 0}), 7);
}

} // namespace

// The order of the list through any sequence of picks, sorts, changes and looks, beside a list of numbers that does
// each of them to the letter.
#include "display_fixture.h"
#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace
{

using namespace display_test;

class Open : public Gdx
{
public:
    using CVekGDX::displayList;
    using Gdx::Gdx;
};

struct Plain {
    int id; // 0: without a path
    VekDisplayObj type;
    unsigned mode;
    double x;

    int drawClass() const
    {
        if (type == dispPicture)
            return 6;
        if (type == dispRegion && (mode == 0 || mode >= 3))
            return 1;
        if (mode == 0 || mode >= 3)
            return 2;
        return mode == 2 ? 3 : type == dispRegion ? 4 : 5;
    }

    /// Polylines reach from x to x + 4 along the x axis, a region is a square of side 4, a point stands at x.
    bool isHit(double at) const
    {
        const double width = type == dispPoint ? 0.0 : 4.0;
        return type != dispPicture && at >= x - 5.0 && at <= x + width + 5.0;
    }
};

class Model
{
public:
    std::vector<Plain> list;

    void sort()
    {
        std::stable_sort(list.begin(), list.end(),
                         [](const Plain& a, const Plain& b) { return a.drawClass() < b.drawClass(); });
    }
    int pick(double at)
    {
        sort();
        std::reverse(list.begin(), list.end());
        const auto hit = std::find_if(list.begin(), list.end(), [&](const Plain& item) { return item.isHit(at); });
        return hit == list.end() ? -1 : hit->id;
    }
};

void emit(Open& gdx, Model& model, const Plain& item)
{
    model.list.push_back(item);
    const unsigned long flag = item.mode << itemColorModeShift;
    const CVekArrayTempl<int> stack = item.id > 0 ? path({item.id}) : path({});
    const CVekMatrix3d m = CVekMatrix3d().setToTranslation({item.x, 0, 0});
    switch (item.type) {
    case dispPoint: gdx.imagePt(stack, flag, {}, {}, m, 0.0, 0, {}); break;
    case dispPolyline: gdx.imageVl(stack, flag, line(0, 0, 4, 0), {}, m, {}, item.x, 0, {}); break;
    case dispRegion: gdx.imageReg(stack, flag, square(4), {}, m, {}, item.x, 0, {}, {}, {}); break;
    default: gdx.imagePicture(stack, flag, L"p.bmp", 0, {}, {}); break;
    }
}

template <class List>
::testing::AssertionResult agree(const List& list, const Model& model)
{
    if (list.len() != static_cast<int>(model.list.size()))
        return ::testing::AssertionFailure() << list.len() << " items, not " << model.list.size();
    int i = 0;
    for (const CVekDisplayItem& item : list) {
        const Plain& wanted = model.list[static_cast<std::size_t>(i)];
        const int id = item.stack.len() > 0 ? item.stack[0] : 0;
        if (id != wanted.id || item.type != wanted.type || item.colorMode() != wanted.mode)
            return ::testing::AssertionFailure() << "item " << i << " is " << id << ", not " << wanted.id;
        ++i;
    }
    return ::testing::AssertionSuccess();
}

/// The same by single looks, counted from the end now and then, which leave the items where they are stored.
::testing::AssertionResult agreesOneByOne(const Open& gdx, const Model& model)
{
    for (int i = gdx.lenGet(); i-- > 0;) {
        const Plain& wanted = model.list[static_cast<std::size_t>(i)];
        CVekArrayTempl<int> stack;
        gdx.itemStackGet(stack, i - i % 2 * gdx.lenGet());
        if ((stack.len() > 0 ? stack[0] : 0) != wanted.id || gdx.typeGet(i) != wanted.type)
            return ::testing::AssertionFailure() << "item " << i << " is not " << wanted.id;
    }
    return ::testing::AssertionSuccess();
}

/// @param modes number of colour modes in use; with one and no regions or pictures there is one class only
void play(unsigned seed, unsigned modes, unsigned kinds)
{
    static constexpr VekDisplayObj kKinds[] = {dispPolyline, dispPoint, dispRegion, dispPicture};
    std::mt19937 engine(seed);
    const auto random = [&](unsigned below) { return static_cast<unsigned>(engine() % below); };
    Open gdx(CVekColor(), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
    const CVekArrayTempl<CVekDisplayItem>* held = nullptr; // the plain array, in the hands of somebody
    Model model;
    int id = 0;
    const auto emitOne = [&] {
        const bool own = random(20) != 0;
        emit(gdx, model, {own ? ++id : 0, kKinds[random(kinds)], random(modes), 1.0 * (random(60))});
    };
    const auto anyId = [&] { return 1 + static_cast<int>(random(static_cast<unsigned>(id) + 1)); };
    for (int i = static_cast<int>(random(30)); i > 0; --i)
        emitOne();
    for (int step = 0; step < 60; ++step) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed << " step " << step);
        switch (random(20)) {
        case 0: emitOne(); break;
        case 1:
            gdx.displListSort();
            model.sort();
            ASSERT_TRUE(agree(gdx.getDisplayList(), model));
            break;
        case 2: {
            const int gone = anyId();
            gdx.removeItemStack(path({gone}));
            std::erase_if(model.list, [&](const Plain& item) { return item.id == gone; });
            break;
        }
        case 3: {
            const std::size_t at = random(static_cast<unsigned>(model.list.size()) + 1);
            if (gdx.removeItem(static_cast<int>(at)))
                model.list.erase(model.list.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        }
        case 4: {
            const int changed = anyId();
            const unsigned mode = random(modes);
            gdx.cModeSet(path({changed}), mode);
            for (Plain& item : model.list)
                item.mode = item.id == changed ? mode : item.mode;
            break;
        }
        case 5: ASSERT_TRUE(agree(gdx.getDisplayList(), model)); break;
        case 6: ASSERT_TRUE(agree(gdx.displayList, model)); break;
        case 7: {
            const Open copy = gdx;
            ASSERT_TRUE(agree(copy.getDisplayList(), model));
            if (random(2))
                gdx = copy;
            break;
        }
        case 8:
            if (random(24) == 0)
                held = &static_cast<const CVekArrayTempl<CVekDisplayItem>&>(gdx.getDisplayList());
            break;
        case 10:
        case 11: ASSERT_TRUE(agreesOneByOne(gdx, model)); break;
        case 12: {
            const std::size_t at = random(static_cast<unsigned>(model.list.size()) + 1);
            if (at == model.list.size())
                break;
            model.list[at].mode = random(modes);
            gdx.cFlagSet(static_cast<int>(at), model.list[at].mode);
            gdx.flagSet(static_cast<int>(at), propHide);
            break;
        }
        case 9:
            if (random(8) == 0) {
                gdx.clear();
                model.list.clear();
            }
            break;
        default: {
            const double at = 1.0 * (random(80));
            ASSERT_EQ(gdx.imageItemGet({at, 0, 0}), model.pick(at));
            break;
        }
        }
        if (held) {
            ASSERT_TRUE(agree(*held, model));
        }
    }
    ASSERT_TRUE(agree(gdx.getDisplayList(), model));
}

TEST(DisplayOrder, IsAsToldThroughAnySequence)
{
    for (unsigned seed = 0; seed < 400 && !::testing::Test::HasFatalFailure(); ++seed)
        play(seed, seed % 3 == 0 ? 1 : 5, seed % 3 == 0 ? 2 : 4);
}

TEST(DisplayPick, HitsArcsWhereTheyAreDrawnWhateverTheirNormal)
{
    shapes::Random random(23);
    int hits = 0, misses = 0;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        Gdx gdx = plain();
        const bool region = random.coin();
        const CVekVertexArray contour = region ? random.star(0, 0, 20, 60, 3 + random.whole(5)) : random.walk(3, 60.0);
        CVekVertexArray vl = contour;
        if (random.coin())
            vl.transformBy(random.motion());
        CVekMatrix3d m = random.motion();
        if (random.coin()) // half a turn about x: the arcs lie on their other side
            m.setToRotation(shapes::pi, CVekVector3d::kXAxis, CVekPoint3d::kOrigin);
        m = CVekMatrix3d().setToTranslation({random.pick({0, 0, 1e6, 1e10}), 0, 0}) * m;
        if (region)
            gdx.imageReg(path({7}), 0, shapes::list({vl}), {}, m, {}, 1.0, 0, {}, {}, {});
        else
            gdx.imageVl(path({7}), 0, vl, {}, m, {}, 1.0, 0, {});
        const CVekPoint3dArray points = vl.getTransformedCopy(m).pts(true, 1e-3);
        const CVekPoint3d at = points[random.whole(points.len())] + random.direction() * random.uniform(0, 12);
        double nearest = HUGE_VAL;
        for (int i = 1; i < points.len(); ++i)
            nearest = std::min(nearest, CVekVertex(points[i - 1], points[i]).lotp(at).distanceTo(at));
        if (std::fabs(nearest - 5.0) < 0.01)
            continue;
        EXPECT_EQ(gdx.imageItemGet(at), nearest < 5.0 ? 7 : -1) << nearest;
        (nearest < 5.0 ? hits : misses) += 1;
    }
    EXPECT_GT(hits, 60);
    EXPECT_GT(misses, 60);
    Gdx gdx = plain();
    gdx.imageVl(path({1}), 0, line(VEK::nan(), 0, VEK::nan(), 0), {}, {}, {}, 1.0, 0, {});
    EXPECT_EQ(gdx.imageItemGet({0, 0, 0}), -1);
}

} // namespace

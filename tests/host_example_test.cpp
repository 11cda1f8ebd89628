// The example project: all of it is drawn, the same everywhere, and what is damaged in it takes nothing else with it.
#include "display_hash.h"
#include "shared/input.h"
#include "shared/project.h"

#include <vek/json.h>
#include <vek/vek.h>

#include <cmath>
#include <gtest/gtest.h>

namespace
{

using VEK::dataSet;
using Items = std::vector<std::uint64_t>; ///< a number for each item

constexpr char kFile[] = VEK_SOURCE_DIR "/examples/facade.json";

/// Coordinates in micrometres: angle functions differ from C library to C library in their last bit.
CVekPoint3d rounded(const CVekPoint3d& point)
{
    const auto whole = [](double value) { return std::floor(value * 1e3 + 0.25); };
    return CVekPoint3d(whole(point[0]), whole(point[1]), whole(point[2]));
}

Items itemsOf(const CVekGDX& gdx)
{
    const auto round = [](CVekVertexArray& line) {
        for (CVekVertex& vertex : line)
            vertex = CVekVertex(rounded(vertex.start), rounded(vertex.end), std::floor(vertex.bulge * 1e6 + 0.25));
    };
    Items items;
    for (CVekDisplayItem item : gdx.getDisplayList()) {
        round(item.vl);
        for (CVekVertexArray& contour : item.reg)
            round(contour);
        for (VEK::VertexArrays& glyph : item.regl)
            for (CVekVertexArray& contour : glyph)
                round(contour);
        item.point = rounded(item.point);
        items.push_back((display_test::Hash() << item).value());
    }
    return items;
}

/// The items of the assembly in views along an axis and from a corner, as one solid, and of all other objects.
Items all(const Project& project)
{
    std::vector<ObjectWish> wishes;
    for (const char* view : {"P", "S", "E", "NW"}) {
        wishes.emplace_back().view = view;
        wishes.back().mode = 1;
    }
    wishes.emplace_back(wishes.back()).full = true;
    for (const ProjectObject& object : project.objects())
        wishes.emplace_back().object = utf8(object.name);
    EXPECT_EQ(wishes.size(), 16u);
    Items items;
    for (const ObjectWish& wish : wishes) {
        CVekGDX gdx;
        project.draw(gdx, wish); // throws if nothing is drawn
        const Items own = itemsOf(gdx);
        items.insert(items.end(), own.begin(), own.end());
    }
    return items;
}

/// The paths of directories and values below an item, to a depth.
void walk(std::vector<CVekDataKey>& paths, const CVekDataItem* item, const CVekDataKey& path, int depth)
{
    for (VEK::CDataIterator child(item); depth > 0 && !child.done(); child.next()) {
        CVekDataKey own(path);
        own.append(*child->getKey());
        paths.push_back(own);
        walk(paths, child, own, depth - 1);
    }
}

Items drawn(CVekDataItem& object, const wchar_t* view)
{
    CVekGDX gdx;
    CVekDataItem status, parm;
    CVekMatrix3d mtx;
    dataSet(&parm, L"CMODE", 1);
    EXPECT_TRUE(vek_gdx_image_bgr(&gdx, &object, &status, mtx, VEK::g_mtx_view_dir(view, CVekPoint3d()).inverse(),
                                  &parm, 1.0, 0.0));
    return itemsOf(gdx);
}

class Example : public testing::Test
{
protected:
    Example() { vekAppSet(&app); }
    ~Example() override { vekAppSet(nullptr); }

    CVekLocalApp app;
    const Project project{kFile};
};

/// Whether the items of one list are all in another, in their order.
bool isWithin(const Items& part, const Items& whole)
{
    auto at = whole.begin();
    return std::all_of(part.begin(), part.end(), [&](std::uint64_t item) {
        at = std::find(at, whole.end(), item);
        return at != whole.end() && at++ != whole.end();
    });
}

TEST_F(Example, IsDrawnTheSameInEveryBuildAndAtEveryAddress)
{
    const Items items = all(project);
    std::vector<std::unique_ptr<char[]>> noise; // the second tree lies elsewhere, and its items in another order
    for (std::size_t size = 16; size < 4096; size += 16)
        noise.push_back(std::make_unique<char[]>(size));
    for (std::size_t i = 0; i < noise.size(); i += 2)
        noise[i].reset();
    display_test::Hash hash;
    for (const std::uint64_t item : items)
        hash << item;
    // Changes only with the example or with how it is drawn; then every build gives the new value.
    EXPECT_EQ(hash.value(), 8280400818393516094u);
    int color = 0;
    dataSet(VEK::cfg_get(L"*LAYER*\\ALU"), L"COLOR", 3); // of a program around the project
    EXPECT_EQ(all(Project(kFile)), items);
    VEK::dataGet(VEK::cfg_get(L"*LAYER*\\ALU"), L"COLOR", color);
    EXPECT_EQ(color, 3);
}

/// A key of an element or of a definition is lost, or has a value of another kind, or a reference goes round in a
/// circle: what does not lean on it is drawn as before.
TEST_F(Example, KeepsTheRestWhereDataIsDamaged)
{
    CVekDataItem tree;
    CVekString error;
    ASSERT_TRUE(VEK::jsonLoad(tree, CVekString(L"" VEK_SOURCE_DIR) + L"/examples/facade.json", error));
    for (const wchar_t* like : {L"OBJ", L"CFG", L"BGR\\anchor middle", L"BGR\\anchor right", L"BGR\\bay right"})
        tree.remove(like);
    const CVekDataKey groups[] = {CVekDataKey(L"BT"), CVekDataKey(5005, L"DEF", 5005, L"bay", 5005, L"BT", 0),
                                  CVekDataKey(5005, L"DEF", 5005, L"anchor", 5005, L"BT", 0), CVekDataKey(L"BGR"),
                                  CVekDataKey(L"DEF")};
    std::vector<CVekDataKey> owners, others;
    for (const CVekDataKey& group : groups) // of the elements every third one
        walk(&group - groups < 3 ? others : owners, tree.getItem(&group), group, 1);
    for (std::size_t i = 0; i < others.size(); ++i)
        i % 3 == 0 ? owners.push_back(others[i]) : static_cast<void>(tree.getDir()->remove(&others[i]));
    int damages = 0, gone = 0, circles = 0;
    for (const CVekDataKey& owner : owners) {
        const CVekString name(*tree.getItem(&owner)->getKey());
        const wchar_t* const view = damages % 3 == 0 ? L"P" : damages % 3 == 1 ? L"S" : L"NW";
        CVekDataItem without(tree);
        dataSet(without.getItem(&owner), L"HIDE", true);
        const Items kept = drawn(without, view);
        EXPECT_GT(kept.size(), 0u);
        std::vector<CVekDataKey> paths;
        const bool hasElements = name == L"bay" || name == L"anchor";
        walk(paths, tree.getItem(&owner), owner, hasElements ? 1 : 9);
        const std::size_t step = 1 + paths.size() / 6; // of long lists of like parts some
        for (std::size_t i = damages % step; i < paths.size(); i += step, ++damages) {
            CVekDataItem damaged(tree);
            CVekDataItem* value = damaged.getItem(&paths[i]);
            const CVekString key(*value->getKey());
            if (key == L"REF" && ++circles)
                dataSet(value, nullptr, name);
            else if (damages % 4 == 0)
                damaged.getDir()->remove(&paths[i]);
            else if (damages % 4 == 1)
                *value = CVekDataItem(CVekDataItem::directory);
            else if (damages % 4 == 2)
                dataSet(value, nullptr, L"x");
            else
                dataSet(value, nullptr, std::nan(""));
            const Items items = drawn(damaged, view);
            gone += items.size() == kept.size();
            EXPECT_TRUE(isWithin(kept, items)) << std::wstring(name) << " " << std::wstring(key);
        }
    }
    EXPECT_GT(damages, 120);
    EXPECT_GT(circles, 10);
    EXPECT_GT(gone, 30);
}

} // namespace

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

std::uint64_t hashOf(CVekDisplayItem item, bool isRounded)
{
    const auto round = [](CVekVertexArray& line) {
        for (CVekVertex& vertex : line)
            vertex = CVekVertex(rounded(vertex.start), rounded(vertex.end), std::floor(vertex.bulge * 1e6 + 0.25));
    };
    if (isRounded) {
        round(item.vl);
        for (CVekVertexArray& contour : item.reg)
            round(contour);
        for (VEK::VertexArrays& glyph : item.regl)
            for (CVekVertexArray& contour : glyph)
                round(contour);
        item.point = rounded(item.point);
    }
    return (display_test::Hash() << item).value();
}

Items itemsOf(const CVekGDX& gdx, bool isRounded = false)
{
    Items items;
    for (const CVekDisplayItem& item : gdx.getDisplayList())
        items.push_back(hashOf(item, isRounded));
    return items;
}

/// The items of the assembly in views along an axis and from a corner, as one solid, and of all other objects; as they
/// are and rounded.
std::pair<Items, Items> all(const Project& project)
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
    std::pair<Items, Items> items;
    for (const ObjectWish& wish : wishes) {
        CVekGDX gdx;
        project.draw(gdx, wish); // throws if nothing is drawn
        for (const bool isRounded : {false, true}) {
            const Items own = itemsOf(gdx, isRounded);
            Items& list = isRounded ? items.second : items.first;
            list.insert(list.end(), own.begin(), own.end());
        }
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

/// Whether an element refers to a definition, directly or through another one.
bool leansOn(const CVekDataItem& object, const CVekDataItem* element, const CVekString& name)
{
    CVekString reference;
    while (VEK::dataGet(element, L"REF", reference) && reference != name)
        element = object.getItem(CVekString(L"DEF\\") + reference);
    return reference == name;
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
    const auto items = all(project);
    std::vector<std::unique_ptr<char[]>> noise; // the second tree lies elsewhere, and its items in another order
    for (std::size_t size = 16; size < 4096; size += 16)
        noise.push_back(std::make_unique<char[]>(size));
    for (std::size_t i = 0; i < noise.size(); i += 2)
        noise[i].reset();
    display_test::Hash hash;
    for (const std::uint64_t item : items.second)
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
    tree.remove(L"OBJ");
    tree.remove(L"CFG");
    const CVekDataKey bay(5005, L"DEF", 5005, L"bay", 5005, L"BT", 0);
    const CVekDataKey anchor(5005, L"DEF", 5005, L"anchor", 5005, L"BT", 0);
    const CVekDataKey groups[] = {CVekDataKey(L"BT"), bay, anchor, CVekDataKey(L"BGR"), CVekDataKey(L"DEF")};
    std::vector<CVekDataKey> owners;
    for (const CVekDataKey& group : groups)
        walk(owners, tree.getItem(&group), group, 1);
    int damages = 0, gone = 0, circles = 0;
    for (const CVekDataKey& owner : owners) {
        const CVekString name(*tree.getItem(&owner)->getKey());
        CVekDataItem small(tree); // what leans on the owner, and in each group one that does not
        for (const CVekDataKey& group : {groups[0], groups[1], groups[2]})
            for (VEK::CDataIterator child(small.getItem(&group)); !child.done(); child.next()) {
                const CVekString own(*child->getKey());
                if (own != name && !leansOn(tree, child, name) && own != L"handrail" && own != L"transom sill" &&
                    own != L"plate")
                    child->getParent()->getDir()->remove(child->getKey());
            }
        const wchar_t* const view = damages % 3 == 0 ? L"P" : damages % 3 == 1 ? L"S" : L"NW";
        CVekDataItem without(small);
        dataSet(without.getItem(&owner), L"HIDE", true);
        const Items kept = drawn(without, view);
        EXPECT_GT(kept.size(), 0u);
        std::vector<CVekDataKey> paths;
        const CVekDataItem* item = small.getItem(&owner);
        const bool hasElements = name == L"bay" || name == L"anchor";
        walk(paths, item, owner, hasElements ? 1 : 9);
        const std::size_t step = 1 + paths.size() / 12; // of a long list of like parts some
        for (std::size_t i = 0; i < paths.size(); i += step) {
            const CVekDataKey& path = paths[i];
            CVekDataItem damaged(small);
            CVekDataItem* value = damaged.getItem(&path);
            const CVekString key(*value->getKey());
            if (key == L"REF") {
                dataSet(value, nullptr, name);
                ++circles;
            } else if (damages % 4 == 0)
                damaged.getDir()->remove(&path);
            else if (damages % 4 == 1)
                *value = CVekDataItem(CVekDataItem::directory);
            else if (damages % 4 == 2)
                dataSet(value, nullptr, L"x");
            else
                dataSet(value, nullptr, std::nan(""));
            ++damages;
            const Items items = drawn(damaged, view);
            gone += items.size() == kept.size();
            EXPECT_TRUE(isWithin(kept, items)) << std::wstring(name) << " " << std::wstring(key);
        }
    }
    EXPECT_GT(damages, 350);
    EXPECT_GT(circles, 30);
    EXPECT_GT(gone, 100);
}

} // namespace

// Attributes of components, bars with their sub-elements, and the example materials.
#include <vek/data/config.h>
#include <vek/data/iterator.h>
#include <vek/data/label.h>
#include <vek/data/material.h>
#include <vek/json.h>
#include <vek/objects/attribute.h>
#include <vek/objects/bar.h>

#include "core/platform/platform.h"
#include "objects_data.h"
#include "shapes.h"

#include <algorithm>
#include <set>
#include <string>

namespace
{

using namespace shapes;
using objects_test::tree;

/// An empty configuration, and afterwards as it was.
class ObjectsAttribute : public testing::Test
{
protected:
    ObjectsAttribute()
    {
        m_backup.attach(nullptr);
        *VEK::cfgMgrPtr()->tree() = CVekDataItem(CVekDataItem::directory);
    }

private:
    VEK::CCfgBackup m_backup{true};
};

TEST_F(ObjectsAttribute, ComeFromTheConfigurationOrTheModel)
{
    CVekDataItem* gasket = VEK::cfg_dir_make(VEK::getCfgKey(L"DICHT"));
    *gasket = tree("{'HPANG': 0.25, 'PART_CON': 'SEALS', 'CORNER': {'PART_CON': 'CORNERS'}}");
    VEK::dataSet(gasket, L"HATCH", VEK::CHatchProp(L"EPDM", 0.5, 2.0, false));
    CVekAttributeMgr manager(L"DICHT", L""), corner(L"DICHT", L"CORNER"), none(L"DM", L""), nothing(L"", L"");
    EXPECT_TRUE(!manager.has_att(L"PART_CON", false) && manager.init() && corner.init());
    EXPECT_FALSE(none.init() || nothing.init());
    const auto text = [](CVekAttributeMgr& from, const wchar_t* name) {
        CVekString value(L"kept");
        return from.get_att(name, value) ? value : value + L"!";
    };
    const auto number = [&](const wchar_t* name) {
        double value = -1.0;
        return manager.get_att(name, value) ? value : value - 2.0;
    };
    EXPECT_TRUE(text(manager, L"PART_CON") == L"SEALS" && text(corner, L"PART_CON") == L"CORNERS");
    EXPECT_TRUE(text(manager, L"HPNAME") == L"EPDM" && number(L"HPSCALE") == 2.0);
    EXPECT_EQ(number(L"HPANG"), 0.25) << "its own value before that of the hatch";
    for (const wchar_t* name : {L"HPANG", L"HPSCALE", L"PART_FILL", L"CORNER", L"", L"HATCH"})
        EXPECT_EQ(text(manager, name), L"kept!") << name;
    EXPECT_TRUE(number(L"HPNAME") == -3.0 && number(L"PART_CON") == -3.0 && text(none, L"PART_CON") == L"kept!");
    // Values are read when asked for, names were learnt before.
    VEK::dataSet(gasket, L"PART_CON", CVekString(L"NEW"));
    VEK::dataSet(gasket, L"PART_FILL", CVekString(L"LATE"));
    EXPECT_TRUE(text(manager, L"PART_CON") == L"NEW" && text(manager, L"PART_FILL") == L"kept!");
    EXPECT_TRUE(manager.has_att(L"PART_CON", true) && !manager.has_att(L"PART_FILL", false));
    // The model alone counts while there is one, for names that init did not find as well.
    VEK::dataSet(gasket, L"MODEL\\PART_FILL", CVekString(L"MODEL"));
    EXPECT_TRUE(text(manager, L"PART_FILL") == L"MODEL" && text(manager, L"PART_CON") == L"kept!");
    gasket->remove(L"MODEL");
    VEK::cfg_get(L"*ATT*")->remove(L"DICHT");
    EXPECT_TRUE(manager.has_att(L"PART_CON", false) && !manager.has_att(L"PART_CON", true));
    EXPECT_TRUE(text(manager, L"PART_CON") == L"kept!" && !manager.init() && !manager.has_att(L"PART_CON", false));
}

TEST(ObjectsBar, HasItsSectionInEitherForm)
{
    CVekDataItem bar(CVekDataItem::directory);
    const auto section = [&](const CVekMatrix3d& mtx) {
        const VEK::CUniqPointer<VEK::CDtaFilePointer> file(VEK::dtaOpen(6, 3, nullptr, &bar));
        return VEK::bar_regl(file, mtx);
    };
    CVekMatrix3d move;
    move.setToTranslation({5, 6, 0});
    EXPECT_EQ(VEK::bar_regl(nullptr, move).len() + section(move).len(), 0);
    bar = tree("{'OUTLINE': {'CODE': 24, 'PARMS': {'#1': 10.0, '#2': 1.0}}, 'UNIT': {'@unit': 5}}");
    VEK::Regions regions = section(move);
    ASSERT_TRUE(regions.len() == 1 && regions[0].len() == 2) << "a tube and its hole";
    EXPECT_NEAR(areaOf(regions[0][0]) - areaOf(regions[0][1]), 900 * pi, 1e-2);
    CVekPoint3d low, high;
    EXPECT_TRUE(regions[0][0].extents(low, high) && low.distanceTo({-45, -44, 0}) < 1e-9);
    VEK::dataSet(
        &bar, L"VL",
        list({rectangle(0, 0, 4, 4), line(1, 1, 3, 1), line(3, 3, 1, 1), line(3, 1, 3, 3), rectangle(9, 9, 10, 10)}));
    regions = section(CVekMatrix3d());
    ASSERT_TRUE(regions.len() == 2 && regions[0].len() == 2 && regions[1].len() == 1);
    EXPECT_NEAR(std::fabs(areaOf(regions[0][1])), 200, 1e-9) << "the hole of three loose sides";
    VEK::dataSet(&bar, L"REGL", VEK::Regions{list({rectangle(0, 0, 1, 2)})});
    EXPECT_NEAR(areaOf(section(move.setToMirroring(CVekPlane(CVekPoint3d::kOrigin, CVekVector3d::kXAxis)))[0][0]), -200,
                1e-9);
    for (const wchar_t* key : {L"REGL", L"VL", L"OUTLINE", L"UNIT"})
        VEK::dataSet(&bar, key, CVekString(L"?"));
    EXPECT_EQ(section(move).len(), 0);
}

TEST(ObjectsBar, SubElementsFollowTheirParents)
{
    Random random(5);
    int judged = 0;
    for (int round = 0; round < 40; ++round) {
        const int count = 1 + random.whole(30);
        std::vector<int> parents;
        std::string elements;
        for (int i = 0; i < count; ++i) {
            parents.push_back(random.whole(count + 2) - 1); // some of none, some unknown, some in a circle
            const std::string name = std::to_string(i), parent = std::to_string(parents.back());
            elements += (i ? ", 'E" : "'E") + name + "': {'X': " + name +
                        (parent[0] == '-' ? "}" : ", 'PARENT': 'E" + parent + "'}");
        }
        const std::string group = "{'G': {" + elements + "}}";
        CVekDataItem root = tree(round % 2 ? "{'LOBJ': " + group + "}" : group);
        const int asked = random.whole(count);
        std::vector<int> wanted;
        for (int i = 0; i < count; ++i) {
            int up = parents[static_cast<std::size_t>(i)], steps = 0;
            while (up >= 0 && up < count && up != asked && ++steps <= count)
                up = parents[static_cast<std::size_t>(up)];
            if (up == asked && i != asked)
                wanted.push_back(i);
        }
        CVekArrayTempl<CVekDataKey> keys;
        keys.append(CVekDataKey(L"before"));
        const CVekString element((L"E" + std::to_wstring(asked)).c_str());
        EXPECT_EQ(VEK::bar_bt_subs(keys, &root, L"G", element), !wanted.empty());
        ASSERT_EQ(keys.len(), static_cast<int>(wanted.size())) << round;
        for (int i = 0; i < keys.len(); ++i, ++judged)
            EXPECT_EQ(std::wstring(keys[i]), L"E" + std::to_wstring(wanted[static_cast<std::size_t>(i)]));
        EXPECT_FALSE(VEK::bar_bt_subs(keys, &root, L"?", element) || VEK::bar_bt_subs(keys, &root, L"G", L"?"));
        EXPECT_FALSE(VEK::bar_bt_subs(keys, nullptr, L"G", element));
    }
    EXPECT_GT(judged, 100);
}

TEST_F(ObjectsAttribute, ExampleMaterialsAreComplete)
{
    const CVekString folder = CVekString(L"" VEK_SOURCE_DIR) + L"/examples/";
    CVekString error, label, text;
    ASSERT_TRUE(VEK::jsonLoad(*VEK::cfgMgrPtr()->tree(), folder + L"materials.json", error));
    std::string patterns;
    ASSERT_TRUE(VEK::platform::readFile(VEK::platform::pathOf(std::wstring(folder + L"patterns/vek.pat")), patterns));
    const VEK::CMatMgr materials;
    CVekArrayTempl<CVekString> groups;
    materials.matDrawAll(groups, false);
    EXPECT_EQ(groups.len(), 6);
    std::set<std::wstring> named(groups.begin(), groups.end()); // as a group, or below another one
    int count = 0, hatches = 0;
    for (VEK::CDataIterator material(VEK::cfg_get(L"*MAT*")); !material.done(); material.next(), ++count) {
        const CVekString key(*material->getKey());
        VEK::CMatProp prop, from;
        EXPECT_TRUE(materials.propGet(key, prop)) << count;
        for (const CVekString& sub : prop.subKeys)
            EXPECT_TRUE(named.insert(std::wstring(sub)).second && materials.propGet(sub, from)) << count;
        EXPECT_TRUE(prop.physKind != VEK::matReference ||
                    (materials.propGet(prop.physRef, from) && from.physKind != VEK::matNone));
        EXPECT_TRUE(prop.edgeKind != VEK::matReference ||
                    (materials.propGet(prop.edgeRef, from) && from.edgeKind == VEK::matOwn));
        EXPECT_TRUE(prop.physKind != VEK::matOwn || prop.phys[L"RHO"] > 0.0);
        VEK::CHatchProp hatch;
        for (const wchar_t* language : {L"de", L"en", L"fr", L"pl", L"cs"})
            EXPECT_TRUE(VEK::dataGet(material, L"LABEL", label) && VEK::label_get(text, label, language, false) &&
                        !text.isNull());
        const CVekDataItem* stored = material->getItem(L"HATCH");
        EXPECT_TRUE(!stored || (VEK::dataGet(stored, nullptr, hatch) && VEK::dataGet(material, L"LAYER", text)));
        const std::string name = "\n*" + VEK::platform::utf8Of(std::wstring(hatch.name)) + ",";
        EXPECT_TRUE(!stored || (++hatches && patterns.find(name) != std::string::npos)) << name;
    }
    EXPECT_EQ(count, static_cast<int>(named.size())) << "each in one place";
    EXPECT_TRUE(count >= 60 && hatches >= 60);
}

} // namespace

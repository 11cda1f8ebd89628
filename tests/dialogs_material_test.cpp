// Which materials can be chosen, and where buttons stand.
#include "dialogs/button_row.h"
#include "material_library.h"

#include <vek/dialogs.h>

namespace
{

using namespace material_test;

/// The rules step by step; references that go on for long go in circles.
bool canBeChosen(const Models& models, const std::string& key, unsigned flags, bool needsDensity)
{
    const auto of = [&](const std::string& at) { return models.contains(at) ? models.at(at) : Model(); };
    const Model model = of(key);
    if (key == "SYSTEM")
        return true;
    if (flags & 4 && model.edge != 1)
        return model.edge == 3;
    if (!(flags & 32))
        return true;
    Model at = model;
    for (int i = 0; i < 100 && at.phys == 1; ++i)
        at = of(at.from);
    return at.phys >= (needsDensity ? 3 : 2);
}

TEST(MaterialChoice, FollowsDataAndReferences)
{
    EXPECT_EQ(VEK::matDialogFlags({L"PHYS", L"EDGE"}, false, true), 2u + 4);
    EXPECT_EQ(VEK::matDialogFlags({L"PHYS", L"SPACE", L"space"}, true, false), 1u + 16 + 32);
    EXPECT_EQ(VEK::matDialogFlags({L"SYSTEM", L"edge"}, false, false), 8u);
    std::mt19937 random(6);
    const Keys names = {"B", "a", "A", "c", "SYSTEM", "d", "e"};
    int counts[2] = {};
    for (int round = 0; round < 1500; ++round) {
        const Models models = randomModels(random, names);
        const Library library(models);
        const unsigned flags = random() % 2 * 32 + random() % 2 * 4;
        for (const std::string& key : names) {
            const bool needsDensity = random() % 2;
            const bool good = canBeChosen(models, key, flags, needsDensity);
            const Keys physKeys = needsDensity ? Keys{"E", "RHO"} : Keys{"E"};
            ASSERT_EQ(VEK::matCanBeChosen({}, wide(key), flags, wide(physKeys)), good) << key << flags;
            ++counts[good];
        }
    }
    EXPECT_GT(std::min(counts[0], counts[1]), 3000);
}

TEST(ButtonRow, StandsInTheLowerRightCorner)
{
    const auto size = [](int id, int& width, int& height) {
        width = 70 + id, height = 20 + id;
        return id < 50;
    };
    const VEK::ButtonRow row = VEK::buttonRow({99, 9, 2, 77, 1}, 400, 300, size);
    ASSERT_EQ(row.buttons.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        const int right = 388 - 85 * i;
        EXPECT_EQ(row.buttons[static_cast<std::size_t>(i)].id, i == 0 ? 9 : 3 - i);
        EXPECT_EQ(row.buttons[static_cast<std::size_t>(i)].rect, (VEK::DlgRect{right - 79, 259, right, 288}));
    }
    EXPECT_EQ(row.rest, (VEK::DlgRect{12, 12, 388, 247}));
    EXPECT_EQ(VEK::buttonRow({}, 10, 10, size).rest, (VEK::DlgRect{12, 12, 12, 12}));
}

} // namespace

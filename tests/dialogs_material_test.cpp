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
    const Keys words = {"EDGE", "PHYS", "SYSTEM", "SPACE", "edge"};
    for (unsigned set = 0; set < 128; ++set) {
        Keys options;
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (set >> i & 1)
                options.push_back(words[i]);
        }
        const unsigned kinds = set & 1 ? 4 : set & 2 ? 32 : 0;
        EXPECT_EQ(VEK::matDialogFlags(wide(options), set & 32, set & 64),
                  kinds + (set & 4 ? 8 : 0) + (set & 8 ? 16 : 0) + (set >> 5));
    }
    std::mt19937 random(6);
    const Keys names = {"B", "a", "A", "c", "SYSTEM", "d", "e"};
    int counts[2] = {};
    for (int round = 0; round < 1500; ++round) {
        const Models models = randomModels(random, names);
        const Library library(models);
        const unsigned flags = random() % 4 * 32 + random() % 2 * 4;
        for (const std::string& key : names) {
            const bool needsDensity = random() % 2;
            const bool good = canBeChosen(models, key, flags & 36, needsDensity);
            const CVekArrayTempl<CVekString> keys =
                needsDensity ? CVekArrayTempl<CVekString>{L"E", L"RHO"} : wide(Keys{"E"});
            ASSERT_EQ(VEK::matCanBeChosen({}, wide(key), flags & 36, keys), good) << key << flags;
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
    int right = 388;
    for (const int id : {9, 2, 1}) {
        const VEK::PlacedButton& button = row.buttons[static_cast<std::size_t>(right == 388 ? 0 : id == 2 ? 1 : 2)];
        EXPECT_EQ(button.id, id);
        EXPECT_EQ(button.rect, (VEK::DlgRect{right - 79, 259, right, 288}));
        right -= 85;
    }
    EXPECT_EQ(row.rest, (VEK::DlgRect{12, 12, 388, 247}));
    EXPECT_EQ(VEK::buttonRow({}, 10, 10, size).rest, (VEK::DlgRect{12, 12, 12, 12}));
}

} // namespace

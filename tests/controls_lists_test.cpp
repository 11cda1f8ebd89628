// What tabs and lists decide without their windows.
#include <vek/controls/cell_editor.h>
#include <vek/controls/tab_order.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{

/// Tabs with names, of which insertion and deletion change no other.
TEST(ControlsTabs, StaySelectedWhileOthersComeAndGo)
{
    std::mt19937 random(7);
    std::vector<int> names;
    int selected = -1, name = -1, replaced = 0;
    for (int round = 0; round < 4000; ++round) {
        const int count = static_cast<int>(names.size());
        const bool inserts = count == 0 || (count < 9 && random() % 2 != 0);
        const int at = static_cast<int>(random() % static_cast<unsigned>(inserts ? count + 1 : count));
        if (inserts) {
            names.insert(names.begin() + at, round);
            selected = VEK::tabAfterInsertion(selected, at);
            if (selected < 0) { // the first one
                selected = at;
                name = round;
            }
        } else {
            const bool isSelected = names[static_cast<std::size_t>(at)] == name;
            names.erase(names.begin() + at);
            selected = VEK::tabAfterDeletion(selected, at, count - 1);
            if (isSelected) { // the next one follows, or else the last one
                ++replaced;
                ASSERT_EQ(selected, at < count - 1 ? at : count - 2);
                name = selected < 0 ? -1 : names[static_cast<std::size_t>(selected)];
            }
        }
        const auto found = std::find(names.begin(), names.end(), name);
        ASSERT_EQ(selected, found == names.end() ? -1 : static_cast<int>(found - names.begin()));
    }
    EXPECT_GT(replaced, 300);
}

TEST(ControlsTabs, LeadInACirclePastDisabledOnes)
{
    int judged = 0;
    for (int count = 0; count <= 7; ++count) {
        for (unsigned disabled = 0; disabled < 1u << count; ++disabled) {
            CVekArrayTempl<unsigned> flags;
            for (int i = 0; i < count; ++i)
                flags.append((disabled >> i & 1) | 6u); // other bits do not matter
            for (int from = 0; from < count; ++from, ++judged) {
                int next = from, previous = from, steps = 0;
                do // where all are disabled it would go on for ever
                    next = (next + 1) % count;
                while ((disabled >> next & 1) != 0 && ++steps < count);
                do
                    previous = (count - 1 + previous) % count;
                while ((disabled >> previous & 1) != 0 && ++steps < 2 * count);
                const bool isNone = disabled + 1 == 1u << count;
                ASSERT_EQ(VEK::nextEnabledTab(flags, from, false), isNone ? -1 : next) << count << " " << disabled;
                ASSERT_EQ(VEK::nextEnabledTab(flags, from, true), isNone ? -1 : previous) << count << " " << disabled;
            }
        }
    }
    EXPECT_EQ(judged, 1538); // the sum of n 2^n
    EXPECT_EQ(VEK::nextEnabledTab({}, -1, false), -1);
    EXPECT_EQ(VEK::nextEnabledTab({0, 0}, -1, false), 0);
    EXPECT_EQ(VEK::nextEnabledTab({0, 0}, -1, true), 1);
}

TEST(ControlsTabs, LeaveTheirPagesTheRestOfTheControl)
{
    const VEK::DlgRect page = VEK::tabPageRect({10, 20, 310, 220}, 21);
    EXPECT_EQ(page, (VEK::DlgRect{2, 25, 2 + 294, 25 + 171}));
    EXPECT_EQ(VEK::tabPageRect({0, 0, 5, 10}, 21), (VEK::DlgRect{2, 25, 2, 25}));
}

TEST(ControlsLists, OpenTheirEditorAtTheSecondClickOnAText)
{
    int opened = 0;
    for (int selected = -1; selected < 3; ++selected) {
        for (int clicked = -1; clicked < 3; ++clicked) {
            EXPECT_FALSE(VEK::clickOpensEditor(selected, clicked, false));
            const bool isFirstOfNone = selected == -1 && clicked == 0, isAgain = clicked != -1 && clicked == selected;
            EXPECT_EQ(VEK::clickOpensEditor(selected, clicked, true), isFirstOfNone || isAgain);
            opened += isFirstOfNone || isAgain;
        }
    }
    EXPECT_EQ(opened, 4);
    EXPECT_EQ(VEK::cellEditorRect({10, 20, 90, 38}, 0), (VEK::DlgRect{10, 20, 88, 38}));
    EXPECT_EQ(VEK::cellEditorRect({10, 20, 90, 38}, 16), (VEK::DlgRect{26, 20, 88, 38}));
    // A header item tells its alignment in two bits, among others: left, right, centre.
    const unsigned long styles[] = {0x50000080, 0x50000082, 0x50000081, 0x50000081};
    for (int format = 0; format < 4; ++format)
        EXPECT_EQ(VEK::cellEditorStyle(format | 0x4C00), styles[format]) << format;
}

} // namespace

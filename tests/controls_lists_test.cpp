// What tabs decide without their window.
#include <vek/controls/tab_order.h>

#include <gtest/gtest.h>

TEST(ControlsTabs, LeadInACirclePastDisabledOnes)
{
    int judged = 0;
    for (int count = 1; count <= 7; ++count) {
        for (int test = 0; test < 2 * count << count; ++test, ++judged) {
            const int from = test / 2 % count, disabled = test / 2 / count, step = test % 2 ? count - 1 : 1;
            CVekArrayTempl<unsigned> flags;
            for (int i = 0; i < count; ++i)
                flags.append(static_cast<unsigned>(disabled >> i & 1) | 6u); // other bits do not matter
            int next = from, steps = 0;
            do // where all are disabled it would go on for ever
                next = (next + step) % count;
            while ((disabled >> next & 1) != 0 && ++steps < count);
            const bool isNone = disabled + 1 == 1 << count;
            ASSERT_EQ(VEK::nextEnabledTab(flags, from, test % 2 != 0), isNone ? -1 : next) << count << " " << test;
        }
    }
    EXPECT_EQ(judged, 2 * 1538); // the sum of n 2^n
    EXPECT_EQ(VEK::nextEnabledTab({}, -1, false), -1);
    EXPECT_EQ(VEK::tabPageRect({10, 20, 310, 220}, 21), (VEK::DlgRect{2, 25, 2 + 294, 25 + 171}));
    EXPECT_EQ(VEK::tabPageRect({0, 0, 5, 10}, 21), (VEK::DlgRect{2, 25, 2, 25}));
}

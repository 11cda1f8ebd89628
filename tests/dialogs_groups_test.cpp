#include <vek/dialogs/outline_groups.h>

#include <gtest/gtest.h>

namespace
{

TEST(OutlineGroups, MakeTheFilterWithTheBitsOfTheirRows)
{
    for (int filter = 0; filter < 16; ++filter) {
        CVekArrayTempl<bool> selected;
        for (int row = 0; row < 6; ++row) // more than there are
            selected.append(row > 3 || (filter >> row & 1) != 0);
        EXPECT_EQ(VEK::outlineFilter(selected), filter);
    }
    EXPECT_EQ(VEK::outlineFilter({true, true}), 3);
    EXPECT_EQ(VEK::outlineFilter({}), 0);
}

} // namespace

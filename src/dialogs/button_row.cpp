#include "button_row.h"

#include <algorithm>

namespace VEK
{

namespace
{

constexpr int kMargin = 12;
constexpr int kGap = 6;

} // namespace

ButtonRow buttonRow(const std::vector<int>& ids, int width, int height,
                    const std::function<bool(int id, int& width, int& height)>& sizeOf)
{
    ButtonRow row;
    int buttonWidth = 0, buttonHeight = 0;
    int right = width - kMargin;
    const int bottom = height - kMargin;
    for (const int id : ids) {
        int ownWidth = 0, ownHeight = 0;
        if (!sizeOf(id, ownWidth, ownHeight))
            continue;
        if (row.buttons.empty()) {
            buttonWidth = ownWidth;
            buttonHeight = ownHeight;
        }
        row.buttons.push_back({id, {right - buttonWidth, bottom - buttonHeight, right, bottom}});
        right -= buttonWidth + kGap;
    }
    row.rest = {kMargin, kMargin, std::max(width - kMargin, kMargin),
                std::max(height - buttonHeight - 2 * kMargin, kMargin)};
    return row;
}

} // namespace VEK

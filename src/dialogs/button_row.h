/// @file
/// The layout of a dialog that can be resized: one control that fills it, and a row of buttons under it.
#pragma once

#include <vek/dialogframe/position.h>

#include <functional>
#include <vector>

namespace VEK
{

struct PlacedButton {
    int id;
    DlgRect rect;
};

/// Rectangles in the client area, in pixels.
struct ButtonRow {
    std::vector<PlacedButton> buttons;
    DlgRect rest; ///< for the control that fills the dialog; empty in a client area that is too small
};

/// Places the row from the right edge to the left, every button as large as the first one that there is.
/// @param ids of the buttons, the rightmost first; one that does not exist takes no room
/// @param width,height of the client area
/// @param sizeOf gives the size of a button, false if it does not exist
ButtonRow buttonRow(const std::vector<int>& ids, int width, int height,
                    const std::function<bool(int id, int& width, int& height)>& sizeOf);

} // namespace VEK

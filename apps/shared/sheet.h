/// @file
/// Many small pictures on one sheet.
#pragma once

#include <vek/display.h>

struct Size {
    int width = 0;
    int height = 0;
};

/// Squares in rows with a name beneath each, with an aspect ratio like the picture's.
class Sheet
{
public:
    static constexpr double kCell = 1000.0; ///< side of a square

    /// @param count number of squares, at least 1
    Sheet(int count, Size size);

    /// Adds the name of the next square.
    /// @return the lower left corner of the square
    CVekPoint3d next(CVekGDX& gdx, const CVekString& name);

private:
    int m_columns;
    int m_next = 0;
};

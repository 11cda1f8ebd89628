#include "sheet.h"

#include "lettering.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double kGap = 120.0;
constexpr double kNameHeight = 60.0;
constexpr double kNameDrop = 110.0; // from the square down to the baseline of its name
constexpr double kWidth = Sheet::kCell + kGap;
constexpr double kHeight = Sheet::kCell + kNameDrop + kGap;

} // namespace

Sheet::Sheet(int count, Size size)
{
    const double shape = static_cast<double>(size.width) / size.height * kHeight / kWidth;
    m_columns = std::clamp(static_cast<int>(std::ceil(std::sqrt(count * shape))), 1, count);
}

CVekPoint3d Sheet::next(CVekGDX& gdx, const CVekString& name)
{
    const int row = m_next / m_columns;
    const CVekPoint3d corner((m_next - row * m_columns) * kWidth, row * -kHeight, 0.0);
    ++m_next;
    CVekMatrix3d place;
    place.setCoordSystem({corner[0] + kCell / 2.0, corner[1] - kNameDrop, 0.0}, {kNameHeight, 0.0, 0.0},
                         {0.0, kNameHeight, 0.0}, {0.0, 0.0, kNameHeight});
    TextLook look;
    look.middle = true;
    addText(gdx, name, place, look);
    return corner;
}

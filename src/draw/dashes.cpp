#include "draw/dashes.h"

#include <vek/values/units.h>

namespace VEK::detail
{
namespace
{

constexpr double kLongDash = 0.21;
constexpr double kDotLength = 0.2; // millimetres
constexpr double kDotShare = 1.0;  // length of a dot in its pattern, though its stroke is shorter

/// Rotates the pattern so that a segment begins and ends in the middle of a long dash. Rotation and index advance
/// together, so that each step looks two entries further on: existing drawings depend on it, including for patterns
/// whose long dash this search misses.
void arrange(std::vector<double>& dashes)
{
    std::size_t front = 0; // the first entry of the pattern; a rotation moves it to the end
    for (std::size_t i = 0; front + i < dashes.size(); ++i) {
        const std::size_t at = front + i;
        if (dashes[at] > kLongDash) {
            if (at + 1 == dashes.size())
                dashes.push_back(0.0); // looking past the last entry creates one
            if (dashes[at + 1] < 0.0) {
                dashes[front] *= 0.5;
                dashes.push_back(dashes[front]);
                break;
            }
        }
        dashes.push_back(dashes[front++]);
    }
    dashes.erase(dashes.begin(), dashes.begin() + static_cast<std::ptrdiff_t>(front));
}

} // namespace

void Dashes::prepare(bool arranged)
{
    if (arranged)
        arrange(m_dashes);
    const double dot = acadUnitCv(kDotLength, Vek::unitMillimetre, Vek::unitCurrent);
    m_total = 0.0;
    m_gaps = m_drawn = 0;
    for (double& dash : m_dashes) {
        m_total += dash == 0.0 ? kDotShare : std::fabs(dash);
        if (dash == 0.0)
            dash = dot;
        m_gaps += dash < 0.0;
        m_drawn += dash >= 0.0;
    }
}

} // namespace VEK::detail

/// @file
/// Line patterns and hatch attributes: small descriptions stored with the drawn items.
#pragma once

#include <vek/values/string.h>

/// A line pattern: one entry for each dash. Above 0.0 a drawn length, below 0.0 a gap of that length, 0.0 a dot;
/// lengths are in the drawing's unit.
class VEK_API CVekLineParm : public CVekObj
{
public:
    explicit CVekLineParm(const CVekArrayTempl<double>& dashes) : m_dashes(dashes) {}
    CVekLineParm(std::initializer_list<double> dashes) : m_dashes(dashes) {}
    CVekLineParm(double first, double second)
    {
        m_dashes.append(first);
        m_dashes.append(second);
    }

    const CVekArrayTempl<double>& dashes() const { return m_dashes; }

private:
    CVekArrayTempl<double> m_dashes;
};

namespace VEK
{

/// Hatch attributes.
class VEK_API CHatchProp : public CVekObj
{
public:
    using MovesAsBytes = CHatchProp; ///< see `kVekMovesAsBytes`

    CVekString name;      ///< pattern name
    double angle = 0.0;   ///< radians
    double scale = 1.0;   ///< factor on all lengths of the pattern
    bool crossed = false; ///< a user pattern is drawn a second time, turned by 90 degrees

    CHatchProp() = default;
    CHatchProp(const wchar_t* patternName, double patternAngle, double patternScale, bool isCrossed)
        : name(patternName), angle(patternAngle), scale(patternScale), crossed(isCrossed)
    {
    }

    bool operator==(const CHatchProp& other) const
    {
        return name == other.name && angle == other.angle && scale == other.scale && crossed == other.crossed;
    }
};

} // namespace VEK

/// @file
/// What all generators share: how an item is emitted unless a generator has a reason to do otherwise, how parameters
/// are read, and the guard of each generator.
#pragma once

#include "core/values/whole.h"

#include <vek/data.h>
#include <vek/display/gdx.h>

namespace VEK
{

/// The flag of a colour mode given as "CMODE". A mode that the flag has no room for is dropped.
inline unsigned long modeFlag(int mode)
{
    return mode <= 15 ? (static_cast<unsigned long>(mode) & 15u) << itemColorModeShift : 0u;
}

constexpr unsigned long modeFlag(GdxColorMode mode)
{
    return static_cast<unsigned long>(mode) << itemColorModeShift;
}

/// The point style that leaves the choice to the display object.
inline constexpr unsigned long kOwnPointStyle = 0xFFFFFFFF;

/// Emits with continuous lines, on no stack path and without reference point. Geometry is moved into the item.
class Emission
{
public:
    explicit Emission(CVekGDX& gdx, const CVekMatrix3d& itemMatrix = CVekMatrix3d::kIdentity)
        : mtx(itemMatrix), m_gdx(gdx)
    {
    }

    CVekMatrix3d mtx; ///< of lines and regions

    void line(unsigned long flag, CVekVertexArray&& vl, const CVekColor& color, unsigned long thickn = 0) const
    {
        m_gdx.imageVl({}, flag, std::move(vl), color, mtx, {}, 1.0, thickn, CVekPoint3d::kOrigin);
    }

    template <class Lines>
    void lines(unsigned long flag, Lines& vll, const CVekColor& color) const
    {
        for (auto& vl : vll)
            line(flag, std::move(vl), color);
    }

    void region(unsigned long flag, CVekGDX::Region&& reg, const CVekColor& color = {}, const CVekColor& fill = {},
                const CHatchProp& hatch = {}) const
    {
        m_gdx.imageReg({}, flag, std::move(reg), color, mtx, {}, 1.0, 0, fill, hatch, CVekPoint3d::kOrigin);
    }

    /// A point, outside the matrix. Without a colour only the colour mode decides.
    void mark(GdxColorMode mode, const CVekPoint3d& point, const CVekColor& color = {}) const
    {
        m_gdx.imagePt({}, modeFlag(mode), point, color, CVekMatrix3d::kIdentity, 0.0, kOwnPointStyle,
                      CVekPoint3d::kOrigin);
    }

private:
    CVekGDX& m_gdx;
};

/// Runs a generator: where memory ends, or a standard container cannot grow, its items are gone and it fails.
template <class Job>
bool emitWhole(CVekGDX& gdx, Job&& job)
{
    GdxBatch batch(gdx);
    const bool good = whole(false, std::forward<Job>(job));
    return batch.complete() && good;
}

/// The value at a text path of an item, or the given one.
template <class T>
T valueOr(const CVekDataItem* item, const wchar_t* path, T value)
{
    dataGet(item, path, value);
    return value;
}

/// The root of a file, null for none.
inline CVekDataItem* rootOf(const CDtaFilePointer* file)
{
    return fileItem(file, static_cast<const CVekDataKey*>(nullptr));
}

inline bool isDir(const CVekDataItem* item)
{
    return item && item->isDir();
}

} // namespace VEK

// The pixels that a raster surface draws on, and those that the clip excludes.
#pragma once

#include <vek/values/pixels.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace VEK::raster
{

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point& other) const = default;
};

/// A box of whole pixels, right and bottom exclusive.
struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool empty() const { return left >= right || top >= bottom; }
    bool holds(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

inline Box overlap(const Box& a, const Box& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

inline Box around(const Box& a, const Box& b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

/// The smallest box with a corner on each of two pixels, whatever their order.
inline Box boxOf(const Point& a, const Point& b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

class Canvas
{
public:
    explicit Canvas(CPixels& pixels);

    /// The clip rectangle within the picture; the arguments of all other calls lie inside it.
    const Box& clip() const { return m_clip; }

    bool hasHoles() const { return !m_holes.empty(); }

    /// Whether a box may contain holes.
    bool isHoled(const Box& box) const { return hasHoles() && !overlap(m_holes, box).empty(); }

    void clipTo(const Box& box);
    void clipRestore();

    /// Must be called before holes are cut out: allocates their mask.
    void prepareHoles();

    /// Takes the pixels from x1 to x2, excluding x2, of a row out of the clip, in whose rectangle they lie.
    void cutOut(int y, int x1, int x2);

    /// Sets the pixels from x1 to x2, excluding x2, of a row, as far as they lie in the clip.
    void span(int y, int x1, int x2, std::uint32_t color);

    void pixel(int x, int y, std::uint32_t color)
    {
        if (m_clip.holds(x, y) && !(m_holes.holds(x, y) && isCut(indexOf(x, y))))
            at(indexOf(x, y)) = color;
    }

    // Access by index, without any check.
    std::ptrdiff_t stride() const { return m_stride; }
    std::ptrdiff_t indexOf(int x, int y) const { return y * m_stride + x; }
    std::uint32_t& at(std::ptrdiff_t index) { return m_data[index]; }
    bool isCut(std::ptrdiff_t index) const { return m_mask[static_cast<std::size_t>(index)] != 0; }

private:
    std::uint32_t* m_data = nullptr;
    std::ptrdiff_t m_stride = 0;
    Box m_whole;
    Box m_clip;
    Box m_holes;                      ///< around everything cut out
    std::vector<std::uint8_t> m_mask; ///< a byte for each pixel, allocated with the first hole
};

} // namespace VEK::raster

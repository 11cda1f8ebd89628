#include "surfaces/raster_canvas.h"

namespace VEK::raster
{

Canvas::Canvas(CPixels& pixels)
{
    if (pixels.width < 1 || pixels.height < 1 ||
        pixels.data.size() != static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height))
        return;
    m_data = pixels.data.data();
    m_stride = pixels.width;
    m_whole = {0, 0, pixels.width, pixels.height};
    m_clip = m_whole;
}

void Canvas::clipTo(const Box& box)
{
    clipRestore();
    m_clip = overlap(m_whole, box);
    if (m_clip.empty())
        m_clip = {};
}

void Canvas::clipRestore()
{
    for (int y = m_holes.top; y < m_holes.bottom; ++y)
        std::fill_n(m_mask.begin() + indexOf(m_holes.left, y), m_holes.right - m_holes.left, std::uint8_t(0));
    m_holes = {};
}

void Canvas::prepareHoles()
{
    if (m_mask.empty())
        m_mask.resize(static_cast<std::size_t>(m_stride) * static_cast<std::size_t>(m_whole.bottom));
}

void Canvas::cutOut(int y, int x1, int x2)
{
    const Box cut{x1, y, x2, y + 1};
    m_holes = m_holes.empty() ? cut : around(m_holes, cut);
    std::fill_n(m_mask.begin() + indexOf(x1, y), x2 - x1, std::uint8_t(1));
}

void Canvas::span(int y, int x1, int x2, std::uint32_t color)
{
    x1 = std::max(x1, m_clip.left);
    x2 = std::min(x2, m_clip.right);
    if (x1 >= x2 || y < m_clip.top || y >= m_clip.bottom)
        return;
    const std::ptrdiff_t row = indexOf(0, y);
    if (!isHoled({x1, y, x2, y + 1})) {
        std::fill(m_data + row + x1, m_data + row + x2, color);
        return;
    }
    for (std::ptrdiff_t i = row + x1; i < row + x2; ++i) {
        if (!isCut(i))
            m_data[i] = color;
    }
}

} // namespace VEK::raster

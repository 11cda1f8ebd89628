#include "display/index.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <string_view>

namespace VEK
{
namespace
{

/// The nearest smaller `float`; infinite where there is none.
float below(double value)
{
    constexpr float kMost = std::numeric_limits<float>::max();
    if (!(value >= -kMost))
        return -DisplayIndex::Box::kAll;
    const float near = static_cast<float>(std::min(value, double{kMost}));
    return near <= value ? near : std::nextafter(near, -DisplayIndex::Box::kAll);
}

float above(double value)
{
    return -below(-value);
}

bool isFlat(const CVekPoint3d& p)
{
    return p.z == 0.0 && !std::signbit(p.z);
}

bool isContinuous(const CVekArrayTempl<double>& linetype)
{
    const double* const dash = linetype.begin();
    return linetype.len() < 2 || (linetype.len() == 3 && dash[0] == 1.0 && dash[1] == 0.0 && dash[2] == 0.0);
}

/// The bytes of a matrix's numbers, but for the last row, which plays no part.
std::string_view numbers(const CVekMatrix3d& m)
{
    const CVekMatrix3d::Rows& rows = m;
    return {reinterpret_cast<const char*>(&rows[0][0]), 12 * sizeof(double)};
}

/// The ends of a polyline's segments, one after the other.
template <class Visit>
void forEachPoint(const CVekVertexArray& vl, Visit&& visit)
{
    visit(vl.begin()->start);
    for (const CVekVertex& vertex : vl)
        visit(vertex.end);
}

/// Where a polyline reaches under a matrix. An arc lies within a sphere about its start.
DisplayIndex::Box reach(const CVekVertexArray& vl, const CVekMatrix3d& m)
{
    DisplayIndex::Box box = DisplayIndex::Box::none();
    for (const CVekVertex& vertex : vl) {
        box.add(vertex.start * m);
        box.add(vertex.end * m);
        if (vertex.bulge == 0.0)
            continue;
        const double radius = vertex.start.distanceTo(vertex.end) * (1.0 + std::fabs(vertex.bulge));
        for (int corner = 0; corner < 8; ++corner) {
            const CVekVector3d to((corner & 1) != 0 ? radius : -radius, (corner & 2) != 0 ? radius : -radius,
                                  (corner & 4) != 0 ? radius : -radius);
            box.add((vertex.start + to) * m);
        }
    }
    return box;
}

/// Whether a polyline is a chain of few straight segments.
bool isChain(const CVekVertexArray& vl)
{
    if (vl.len() == 0 || vl.len() >= static_cast<int>(DisplayIndex::kPoints))
        return false;
    const CVekPoint3d* before = nullptr;
    for (const CVekVertex& vertex : vl) {
        if (vertex.bulge != 0.0 || (before && *before != vertex.start))
            return false;
        before = &vertex.end;
    }
    return true;
}

} // namespace

/// What is not a number reaches everywhere.
void DisplayIndex::Box::add(const CVekPoint3d& p)
{
    left = std::min(left, below(p.x));
    bottom = std::min(bottom, below(p.y));
    right = std::max(right, above(p.x));
    top = std::max(top, above(p.y));
}

std::size_t DisplayIndex::MatrixHash::operator()(const CVekMatrix3d* m) const
{
    return std::hash<std::string_view>()(numbers(*m));
}

bool DisplayIndex::MatrixEqual::operator()(const CVekMatrix3d* a, const CVekMatrix3d* b) const
{
    return numbers(*a) == numbers(*b);
}

void DisplayIndex::resize(int count)
{
    const std::size_t size = static_cast<std::size_t>(count);
    if (size != m_count && m_extents.size() > m_count / kMeasured) // they lacked the items that have come
        m_extents[m_count / kMeasured] = {};
    m_count = size;
}

void DisplayIndex::beginPaint(const CVekMatrix3d& viewDirection, bool turns)
{
    const bool isOther = turns != m_turns || (turns && numbers(viewDirection) != numbers(m_direction));
    if (isOther || m_forgotten > m_coordinates.size() / 2)
        forgetRows();
    if (isOther)
        m_turned.clear();
    m_turns = turns;
    m_direction = viewDirection;
    if (m_coordinates.empty())
        m_coordinates.reserve(4 * m_count); // of lines of two points
    m_rows.resize(m_count);
    (m_turns ? m_turned : m_world).resize(m_count);
}

bool DisplayIndex::mayPick(const Box& box) const
{
    constexpr std::size_t kStretch = 1024; // counted without a branch, so that several are compared at a time
    const float left = box.left, bottom = box.bottom, right = box.right, top = box.top;
    for (std::size_t n = 0; n < m_world.size();) {
        int near = 0;
        for (const std::size_t end = std::min(n + kStretch, m_world.size()); n < end; ++n) {
            const Box& other = m_world[n];
            near += (other.right >= left) & (other.left <= right) & (other.top >= bottom) & (other.bottom <= top);
        }
        if (near > 0)
            return true;
    }
    return false;
}

const int* DisplayIndex::paths(const CVekDisplayItem* items)
{
    m_paths.reserve(m_count);
    for (std::size_t n = m_paths.size(); n < m_count; ++n)
        m_paths.push_back(items[n].stack.len() > 0 ? *items[n].stack.begin() : 0);
    return m_paths.data();
}

void DisplayIndex::setPath(int number, int first)
{
    if (static_cast<std::size_t>(number) < m_paths.size())
        m_paths[static_cast<std::size_t>(number)] = first;
}

void DisplayIndex::measureBy(const CVekMatrix3d& view)
{
    if (numbers(view) != numbers(m_view))
        m_extents.clear();
    m_view = view;
    m_extents.resize((m_count + kMeasured - 1) / kMeasured);
}

void DisplayIndex::forgetRows()
{
    std::fill(m_rows.begin(), m_rows.end(), Row{});
    m_coordinates.clear();
    m_texts.clear();
    m_contours.clear();
    m_forgotten = 0;
    m_looks.clear();
    m_lookNumbers.clear();
    m_matrixNumbers.clear();
    m_matrices.clear();
}

void DisplayIndex::forget(int number)
{
    const std::size_t n = static_cast<std::size_t>(number);
    if (n < m_rows.size()) {
        m_forgotten += coordinateCount(m_rows[n]);
        m_rows[n] = {};
    }
    if (n < m_world.size())
        m_world[n] = {};
    if (n < m_turned.size())
        m_turned[n] = {};
    if (n / kMeasured < m_extents.size())
        m_extents[n / kMeasured] = {};
}

const DisplayIndex::Row& DisplayIndex::learn(int number, const CVekDisplayItem& item)
{
    const std::size_t n = static_cast<std::size_t>(number);
    Box box;
    Row row;
    if ((item.flag & itemHidden) != 0)
        row.kind = Kind::nothing;
    else if (isPlain(item) && setLine(row, box, item))
        (m_turns ? m_turned : m_world)[n] = box;
    else if (!setText(row, item))
        row.kind = Kind::item;
    return m_rows[n] = row;
}

std::size_t DisplayIndex::coordinateCount(const Row& row) const
{
    if (row.kind == Kind::text)
        return text(row).size;
    return row.count * (row.kind == Kind::flatLine ? std::size_t{2} : std::size_t{3});
}

bool DisplayIndex::isPlain(const CVekDisplayItem& item)
{
    return item.type == dispPolyline && (item.flag & itemScreenFixed) == 0 && isContinuous(item.linetype) &&
           isChain(item.vl);
}

/// @return false if the item is better drawn by itself
bool DisplayIndex::setLine(Row& row, Box& box, const CVekDisplayItem& item)
{
    if (!setLook(row, item) || !setMatrix(row, item.mtx))
        return false;
    const auto turned = [&](const CVekPoint3d& p) { return m_turns ? p * m_direction : p; };
    bool flat = true;
    box = Box::none();
    forEachPoint(item.vl, [&](const CVekPoint3d& stored) {
        const CVekPoint3d p = turned(stored);
        flat = flat && isFlat(p);
        box.add(row.matrix != 0 ? p * item.mtx : p);
    });
    const std::size_t count = static_cast<std::size_t>(item.vl.len()) + 1, size = count * (flat ? 2 : 3);
    if (!box.isBounded() || m_coordinates.size() + size > UINT_MAX)
        return false;
    row.first = static_cast<unsigned>(m_coordinates.size());
    row.count = static_cast<std::uint16_t>(count);
    row.kind = flat ? Kind::flatLine : Kind::line;
    m_coordinates.resize(m_coordinates.size() + size);
    double* to = m_coordinates.data() + row.first;
    forEachPoint(item.vl, [&](const CVekPoint3d& stored) {
        const CVekPoint3d p = turned(stored);
        *to++ = p.x;
        *to++ = p.y;
        if (!flat)
            *to++ = p.z;
    });
    return true;
}

/// @return false for anything but a text of glyphs as they should be, and if the view direction turns it
bool DisplayIndex::setText(Row& row, const CVekDisplayItem& item)
{
    if (item.type != dispText || (item.flag & itemScreenFixed) != 0 || m_turns || !setLook(row, item))
        return false;
    Text text{item.mtx, !isIdentity(item.mtx), m_coordinates.size(), 0, m_contours.size(), 0};
    const auto drop = [&] {
        m_coordinates.resize(text.first);
        m_contours.resize(text.contour);
        return false;
    };
    for (const CVekArrayTempl<CVekVertexArray>& glyph : item.regl) {
        for (const CVekVertexArray& contour : glyph) {
            if (!isChain(contour))
                return drop();
            bool flat = true;
            forEachPoint(contour, [&](const CVekPoint3d& p) {
                flat = flat && isFlat(p);
                m_coordinates.push_back(p.x);
                m_coordinates.push_back(p.y);
            });
            if (!flat)
                return drop();
            const bool isOuter = &contour == glyph.begin();
            m_contours.push_back({static_cast<std::uint16_t>(contour.len() + 1), isOuter, contour.isClosed()});
        }
    }
    text.size = m_coordinates.size() - text.first;
    text.count = m_contours.size() - text.contour;
    if (text.count == 0 || m_texts.size() == UINT_MAX)
        return drop();
    row.first = static_cast<unsigned>(m_texts.size());
    row.kind = Kind::text;
    m_texts.push_back(text);
    return true;
}

/// @return false if there are more looks than fit
bool DisplayIndex::setLook(Row& row, const CVekDisplayItem& item)
{
    Look look{0, item.thickn, item.colorMode()};
    if (look.mode == colorOwn) {
        if (item.color.colorIndex() == -1)
            look.mode = colorInverse;
        else
            look.color = static_cast<unsigned>(item.color.oleColor() & 0xFFFFFF);
    }
    const std::uint64_t key =
        std::uint64_t{look.mode} << 56 | std::uint64_t{static_cast<unsigned>(look.thickn)} << 24 | look.color;
    const auto known = m_lookNumbers.find(key);
    const std::size_t number = known != m_lookNumbers.end() ? known->second : m_looks.size();
    if (number >= kLooks)
        return false;
    if (number == m_looks.size()) {
        m_looks.push_back(look);
        m_lookNumbers.emplace(key, static_cast<unsigned>(number));
    }
    row.look = static_cast<std::uint8_t>(number);
    return true;
}

/// @return false if there are so many matrices that it would not pay to have them here as well
bool DisplayIndex::setMatrix(Row& row, const CVekMatrix3d& mtx)
{
    if (isIdentity(mtx))
        return true;
    const auto known = m_matrixNumbers.find(&mtx);
    if (known != m_matrixNumbers.end()) {
        row.matrix = known->second;
        return true;
    }
    if (m_matrices.size() > 1000 + m_rows.size() / 10)
        return false;
    m_matrices.push_back(mtx);
    row.matrix = static_cast<unsigned>(m_matrices.size());
    m_matrixNumbers.emplace(&m_matrices.back(), row.matrix);
    return true;
}

void DisplayIndex::learnWorld(int number, const CVekDisplayItem& item)
{
    Box box = Box::none();
    switch (item.type) {
    case dispPoint: box.add(item.point * item.mtx); break;
    case dispPolyline: box = reach(item.vl, item.mtx); break;
    case dispRegion:
        if (item.reg.len() > 0)
            box = reach(item.reg[0], item.mtx);
        break;
    default: break;
    }
    m_world[static_cast<std::size_t>(number)] = box;
}

} // namespace VEK

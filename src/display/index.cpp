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
    m_world.resize(size);
    m_rows.resize(size);
    if (m_turns)
        m_turned.resize(size);
}

void DisplayIndex::turn(const CVekMatrix3d& viewDirection, bool turns)
{
    const bool isOther = turns != m_turns || (turns && numbers(viewDirection) != numbers(m_direction));
    if (!isOther) {
        if (m_forgotten > kBlock && m_forgotten > m_blocks.size() * kBlock / 2)
            forgetRows();
        return;
    }
    forgetRows();
    m_turned.clear();
    if (turns)
        m_turned.resize(m_rows.size());
    m_turns = turns;
    m_direction = viewDirection;
}

void DisplayIndex::forgetRows()
{
    std::fill(m_rows.begin(), m_rows.end(), Row{});
    m_blocks.clear();
    m_used = m_size = 0;
    m_forgotten = 0;
    m_looks.clear();
    m_lookNumbers.clear();
    m_matrixNumbers.clear();
    m_matrices.clear();
}

void DisplayIndex::forget(int number)
{
    const std::size_t n = static_cast<std::size_t>(number);
    if (n >= m_rows.size())
        return;
    m_forgotten += m_rows[n].count * (m_rows[n].isFlat ? 2u : 3u);
    m_rows[n] = {};
    m_world[n] = {};
    if (m_turns)
        m_turned[n] = {};
}

const DisplayIndex::Row& DisplayIndex::learn(int number, const CVekDisplayItem& item)
{
    const std::size_t n = static_cast<std::size_t>(number);
    Box box;
    Row row{};
    if ((item.flag & itemHidden) != 0)
        row.kind = static_cast<unsigned>(Kind::nothing);
    else
        row.kind = static_cast<unsigned>(isPlain(item) && setLine(row, box, item) ? Kind::line : Kind::item);
    if (row.is() == Kind::line)
        (m_turns ? m_turned : m_world)[n] = box;
    return m_rows[n] = row;
}

bool DisplayIndex::isPlain(const CVekDisplayItem& item)
{
    if (item.type != dispPolyline || (item.flag & itemScreenFixed) != 0 || !isContinuous(item.linetype) ||
        item.vl.len() == 0 || item.vl.len() >= static_cast<int>(kPoints))
        return false;
    const CVekPoint3d* before = nullptr;
    for (const CVekVertex& vertex : item.vl) {
        if (vertex.bulge != 0.0 || (before && *before != vertex.start))
            return false;
        before = &vertex.end;
    }
    return true;
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
    const bool isFinite = box.isKnown() && box.bottom != -Box::kAll && box.right != Box::kAll && box.top != Box::kAll;
    const unsigned count = static_cast<unsigned>(item.vl.len()) + 1;
    double* to = isFinite ? room(row, count * (flat ? 2 : 3)) : nullptr;
    if (!to)
        return false;
    row.count = count;
    row.isFlat = flat;
    forEachPoint(item.vl, [&](const CVekPoint3d& stored) {
        const CVekPoint3d p = turned(stored);
        *to++ = p.x;
        *to++ = p.y;
        if (!flat)
            *to++ = p.z;
    });
    return true;
}

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
    const auto [entry, isNew] = m_lookNumbers.try_emplace(key, static_cast<unsigned>(m_looks.size()));
    if (isNew)
        m_looks.push_back(look);
    row.look = entry->second;
    return row.look == entry->second;
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

/// Room for coordinates; null if there are more than their numbers can tell.
double* DisplayIndex::room(Row& row, unsigned size)
{
    if (m_used + size > m_size) {
        if (m_blocks.size() >= UINT_MAX / kBlock)
            return nullptr;
        const std::size_t wanted = std::max<std::size_t>(size, 8 * m_rows.size());
        const unsigned roomy = static_cast<unsigned>(std::min<std::size_t>(kBlock, wanted));
        m_blocks.push_back(std::make_unique_for_overwrite<double[]>(roomy));
        m_size = roomy;
        m_used = 0;
    }
    row.first = static_cast<unsigned>(m_blocks.size() - 1) * kBlock + m_used;
    m_used += size;
    return m_blocks.back().get() + row.first % kBlock;
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

#include "core/geometry/nesting.h"

#include "core/geometry/area.h"
#include "core/geometry/contour_chain.h"
#include "core/values/crossing.h"

#include <vek/values/tolerance.h>

#include <cstdint>
#include <numeric>

namespace VEK
{
namespace
{

constexpr int kNone = -1;

/// A piece of a contour that is monotonic in x.
struct Piece {
    plane::Vec left;
    plane::Vec right;
    double bulge; ///< from left to right
    int contour;
    bool enters;              ///< the inside of the contour is above it
    std::uint32_t begin, end; ///< the columns that it crosses
};

double heightAt(const Piece& piece, double x)
{
    const double before = piece.left.x - x, behind = piece.right.x - x;
    if (before >= 0.0 || behind <= 0.0)
        return before >= 0.0 ? piece.left.y : piece.right.y;
    if (piece.bulge == 0.0)
        return piece.left.y + (piece.right.y - piece.left.y) * (before / (before - behind));
    const plane::Carrier column(plane::Arc({x, 0.0}, {x, 1.0}, 0.0));
    const plane::Passages found = plane::passages(column, piece.left, piece.right, piece.bulge, before, behind);
    return plane::Arc(piece.left, piece.right, piece.bulge).at(found.t[0]).y;
}

/// Looks straight down from a place on each contour that has no vertex of any contour on its vertical.
///
/// The first piece below belongs either to the contour that contains it, or to a neighbour with the same container.
/// Pieces at one height are ordered as if the contours were slightly apart: first those that end there, small ones
/// before large ones, then those that begin, large ones before small ones.
class Nesting
{
public:
    explicit Nesting(const CVekArrayTempl<CVekVertexArray>& contours) : m_first{0}
    {
        double size = 0.0;
        std::vector<plane::Link> links;
        for (const CVekVertexArray& contour : contours) {
            m_areas.push_back(detail::signedArea(contour, CVekVector3d::kZAxis));
            links.clear();
            if (!plane::appendChain(links, contour))
                links.clear();
            for (std::size_t i = 0; i + 1 < links.size(); ++i) {
                size = std::max({size, std::fabs(links[i].point.x), std::fabs(links[i].point.y)});
                addSide(plane::Arc(links[i].point, links[i + 1].point, links[i].bulge));
            }
            m_first.push_back(m_pieces.size());
        }
        m_tolerance = pointTol(size);
        chooseColumns();
        fillTree();
    }

    std::vector<int> parents() const
    {
        constexpr int kOpen = -2, kOnPath = -3;
        const std::size_t count = m_areas.size();
        std::vector<int> parents(count, kOpen), path;
        for (std::size_t i = 0; i < count; ++i) {
            int contour = static_cast<int>(i), parent = kNone;
            path.clear();
            while (true) {
                int& own = parents[at(contour)];
                if (own != kOpen) { // contours that cross may refer to each other
                    parent = own == kOnPath ? kNone : own;
                    break;
                }
                own = kOnPath;
                path.push_back(contour);
                const Below below = lookDown(contour);
                if (below.contour == kNone || below.contains) {
                    parent = below.contour;
                    break;
                }
                contour = below.contour; // a neighbour
            }
            for (const int beside : path)
                parents[at(beside)] = parent;
        }
        return parents;
    }

private:
    /// A vertical line, between the x of two vertices.
    struct Column {
        double x;
        std::uint32_t gap;
    };

    struct Below {
        int contour = kNone;
        bool contains = false;
    };

    struct Entry {
        double y;
        std::uint32_t piece;
    };

    static std::size_t at(int i) { return static_cast<std::size_t>(i); }
    double area(int contour) const { return std::fabs(m_areas[at(contour)]); }

    void addSide(const plane::Arc& side)
    {
        double from = 0.0;
        const auto addUpTo = [&](double to) {
            const double part = side.sweep() * (to - from);
            addPiece(side.at(from), side.at(to), side.isArc() ? std::tan(0.25 * part) : 0.0);
            from = to;
        };
        if (side.isArc()) { // it turns back in x where its tangent is vertical
            constexpr double kHalf = std::numbers::pi;
            const double way = side.sweep() > 0.0 ? 1.0 : -1.0;
            const double first = std::atan2(side.chord().y, side.chord().x) - 0.5 * side.sweep();
            for (double k = std::ceil(way * first / kHalf - 0.5);; k += 1.0) {
                const double turn = (k + 0.5) * kHalf - way * first; // from the start
                if (!(turn < std::fabs(side.sweep())))
                    break;
                addUpTo(std::max(0.0, turn / std::fabs(side.sweep())));
            }
        }
        addUpTo(1.0);
    }

    void addPiece(plane::Vec from, plane::Vec to, double bulge)
    {
        const int contour = static_cast<int>(m_first.size()) - 1;
        if (from.x < to.x)
            m_pieces.push_back({from, to, bulge, contour, m_areas.back() > 0.0, 0, 0});
        else if (to.x < from.x)
            m_pieces.push_back({to, from, -bulge, contour, m_areas.back() < 0.0, 0, 0});
    }

    /// Chooses for each contour the piece and the place to look down from.
    void chooseColumns()
    {
        std::vector<double> xs;
        xs.reserve(2 * m_pieces.size());
        for (const Piece& piece : m_pieces) {
            xs.push_back(piece.left.x);
            xs.push_back(piece.right.x);
        }
        std::sort(xs.begin(), xs.end());
        const double least = m_tolerance;
        std::size_t kept = 0;
        for (const double x : xs) {
            if (kept == 0 || x - xs[kept - 1] > least)
                xs[kept++] = x;
        }
        xs.resize(kept);
        const auto gap = [&](double x) {
            return static_cast<std::uint32_t>(std::upper_bound(xs.begin(), xs.end(), x) - xs.begin() - 1);
        };
        for (Piece& piece : m_pieces) {
            piece.begin = gap(piece.left.x);
            piece.end = gap(piece.right.x);
        }
        m_lookouts.assign(m_areas.size(), {kNoPiece, {}});
        for (std::size_t i = 0; i < m_areas.size(); ++i)
            m_lookouts[i] = lookout(i, xs);

        for (const Lookout& own : m_lookouts) {
            if (own.piece != kNoPiece)
                m_columns.push_back(own.column);
        }
        const auto byGap = [](const Column& a, const Column& b) { return a.gap < b.gap; };
        std::sort(m_columns.begin(), m_columns.end(), byGap);
        m_columns.erase(std::unique(m_columns.begin(), m_columns.end(),
                                    [](const Column& a, const Column& b) { return a.gap == b.gap; }),
                        m_columns.end());
        const auto column = [&](std::uint32_t first) {
            return static_cast<std::uint32_t>(
                std::lower_bound(m_columns.begin(), m_columns.end(), Column{0.0, first}, byGap) - m_columns.begin());
        };
        for (Piece& piece : m_pieces) {
            piece.begin = column(piece.begin);
            piece.end = column(piece.end);
        }
    }

    struct Lookout {
        std::size_t piece;
        Column column;
    };

    /// The lowest piece of a contour at the middle of one of its pieces, preferably where the contour is not thin above
    /// it.
    Lookout lookout(std::size_t contour, const std::vector<double>& xs) const
    {
        constexpr std::size_t kTries = 8;
        constexpr double kThick = 1e3; // tolerances
        Lookout best{kNoPiece, {}};
        double thickness = -1.0;
        const std::size_t first = m_first[contour], last = m_first[contour + 1];
        std::size_t widest = first;
        for (std::size_t i = first; i < last; ++i) {
            if (width(i) > width(widest))
                widest = i;
        }
        for (std::size_t k = 0; k < kTries && first < last && thickness < kThick * m_tolerance; ++k) {
            const Piece& tried = m_pieces[k == 0 ? widest : first + k * (last - first) / kTries];
            if (tried.begin == tried.end)
                continue;
            const std::uint32_t gap = tried.begin + (tried.end - tried.begin) / 2;
            const double x = 0.5 * (xs[gap] + xs[gap + 1]);
            double low = HUGE_VAL, second = HUGE_VAL;
            std::size_t lowest = kNoPiece;
            for (std::size_t i = first; i < last; ++i) {
                if (m_pieces[i].begin > gap || m_pieces[i].end <= gap)
                    continue;
                const double y = heightAt(m_pieces[i], x);
                second = std::min(second, std::max(y, low));
                if (y < low) {
                    low = y;
                    lowest = i;
                }
            }
            if (second - low > thickness) {
                thickness = second - low;
                best = {lowest, {x, gap}};
            }
        }
        return best;
    }

    double width(std::size_t piece) const { return m_pieces[piece].right.x - m_pieces[piece].left.x; }

    /// Calls `visit(node)` for the nodes of the column tree that together cover the columns of a piece.
    template <class Visit>
    void visitNodes(const Piece& piece, Visit&& visit) const
    {
        std::size_t begin = piece.begin + m_leaves, end = piece.end + m_leaves;
        for (; begin < end; begin /= 2, end /= 2) {
            if (begin % 2)
                visit(begin++);
            if (end % 2)
                visit(--end);
        }
    }

    /// Lists for each node of the tree the pieces that cross all of its columns, from bottom to top.
    void fillTree()
    {
        for (m_leaves = 1; m_leaves < m_columns.size();)
            m_leaves *= 2;
        m_begins.assign(2 * m_leaves + 1, 0);
        for (const Piece& piece : m_pieces)
            visitNodes(piece, [&](std::size_t node) { ++m_begins[node]; });
        std::partial_sum(m_begins.begin(), m_begins.end(), m_begins.begin());
        m_entries.resize(m_begins.back());
        for (std::uint32_t i = 0; i < m_pieces.size(); ++i) {
            visitNodes(m_pieces[i], [&](std::size_t node) {
                m_entries[--m_begins[node]] = {heightAt(m_pieces[i], columnOf(node).x), i};
            });
        }
        for (std::size_t node = 1; node < 2 * m_leaves; ++node)
            sortUpwards(m_entries.begin() + static_cast<std::ptrdiff_t>(m_begins[node]),
                        m_entries.begin() + static_cast<std::ptrdiff_t>(m_begins[node + 1]));
    }

    /// One of a node's columns.
    const Column& columnOf(std::size_t node) const
    {
        while (node < m_leaves)
            node *= 2;
        return m_columns[node - m_leaves];
    }

    template <class Iterator>
    void sortUpwards(Iterator begin, Iterator end) const
    {
        std::sort(begin, end, [](const Entry& a, const Entry& b) { return a.y < b.y; });
        while (begin != end) { // sort pieces at one height
            Iterator behind = begin + 1;
            while (behind != end && behind->y - (behind - 1)->y <= m_tolerance)
                ++behind;
            std::sort(begin, behind,
                      [&](const Entry& a, const Entry& b) { return precedes(m_pieces[a.piece], m_pieces[b.piece]); });
            begin = behind;
        }
    }

    /// The order of pieces at one height.
    bool precedes(const Piece& a, const Piece& b) const
    {
        if (a.enters != b.enters)
            return b.enters;
        const bool outer =
            area(a.contour) != area(b.contour) ? area(a.contour) > area(b.contour) : a.contour < b.contour;
        return a.contour != b.contour && outer == a.enters;
    }

    /// The order of pieces at different heights in one column.
    bool isLower(const Piece& a, double y, const Piece& b, double than) const
    {
        return std::fabs(y - than) > m_tolerance ? y < than : precedes(a, b);
    }

    Below lookDown(int contour) const
    {
        const Lookout& own = m_lookouts[at(contour)];
        if (own.piece == kNoPiece)
            return {};
        const Piece& from = m_pieces[own.piece];
        const double x = own.column.x, height = heightAt(from, x);
        const auto column = std::lower_bound(m_columns.begin(), m_columns.end(), own.column.gap,
                                             [](const Column& a, std::uint32_t gap) { return a.gap < gap; });
        const Piece* next = nullptr;
        double nextHeight = 0.0;
        for (std::size_t node = static_cast<std::size_t>(column - m_columns.begin()) + m_leaves; node > 0; node /= 2) {
            const auto begin = m_entries.begin() + static_cast<std::ptrdiff_t>(m_begins[node]);
            const auto end = m_entries.begin() + static_cast<std::ptrdiff_t>(m_begins[node + 1]);
            const auto above = std::partition_point(begin, end, [&](const Entry& entry) {
                const Piece& piece = m_pieces[entry.piece];
                return isLower(piece, heightAt(piece, x), from, height);
            });
            if (above == begin)
                continue;
            const Piece& candidate = m_pieces[(above - 1)->piece];
            const double y = heightAt(candidate, x);
            if (!next || isLower(*next, nextHeight, candidate, y)) {
                next = &candidate;
                nextHeight = y;
            }
        }
        if (!next || next->contour == contour)
            return {};
        constexpr double kAlike = 1e-9;
        const bool same = std::fabs(nextHeight - height) <= m_tolerance &&
                          area(next->contour) - area(contour) <= kAlike * area(contour);
        return {next->contour, next->enters && !same};
    }

    static constexpr std::size_t kNoPiece = static_cast<std::size_t>(-1);

    std::vector<double> m_areas;
    std::vector<Piece> m_pieces;
    std::vector<std::size_t> m_first; ///< for each contour, its first piece
    double m_tolerance = 0.0;
    std::vector<Lookout> m_lookouts;
    std::vector<Column> m_columns;
    std::size_t m_leaves = 1; ///< of the tree; node n has the children 2n and 2n + 1
    std::vector<std::size_t> m_begins;
    std::vector<Entry> m_entries;
};

} // namespace

std::vector<int> detail::parentsOf(const CVekArrayTempl<CVekVertexArray>& contours)
{
    return Nesting(contours).parents();
}

} // namespace VEK

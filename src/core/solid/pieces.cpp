/// The lines of a picture, cut where what is seen may change.
///
/// Lines with the same ends are one strand, of which the foremost line counts. Strands are cut where they cross, touch
/// or run along one another, always at numbered points, so that parts of different strands that coincide have the same
/// ends again.
#include "core/solid/picture.h"

#include "core/values/intersect.h"

#include <algorithm>

namespace VEK::solids
{
namespace
{

struct Strand {
    Vec start, end;
    double length;
    double bulge;
    Id a, b;
    Id first, count; ///< of its lines, in the list of lines by strand
    bool shared;     ///< whether parts of it may coincide with parts of others
};

struct Cut {
    Id strand;
    Id point;     ///< none if it has no number yet
    double place; ///< along the strand, from 0 to 1
};

class Strands
{
public:
    explicit Strands(Picture& picture) : m_picture(picture), m_cover(picture) {}

    std::vector<Piece> pieces()
    {
        gather();
        meetAll();
        pierceAll();
        sortCuts();
        std::vector<Piece> result = cutAll();
        std::sort(result.begin(), result.end(), [](const Piece& a, const Piece& b) {
            return a.line != b.line ? a.line < b.line : a.place < b.place;
        });
        return result;
    }

private:
    /// Lines with the same ends, and of arcs the same middle, become a strand.
    void gather()
    {
        const std::vector<Line>& lines = m_picture.lines;
        struct Key {
            std::uint64_t ends;
            Id middle, line;
        };
        std::vector<Key> keys;
        keys.reserve(lines.size());
        for (const Line& line : lines) {
            Id middle = kNone;
            if (line.bulge != 0.0)
                middle = m_picture.points.add(arcOf(line.a, line.b, line.bulge).at(0.5));
            keys.push_back({std::uint64_t{line.a} << 32 | line.b, middle, static_cast<Id>(keys.size())});
        }
        std::sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) {
            return a.ends != b.ends ? a.ends < b.ends : a.middle != b.middle ? a.middle < b.middle : a.line < b.line;
        });
        m_members.reserve(lines.size());
        std::vector<Strand> strands;
        std::vector<Box> boxes;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            m_members.push_back(keys[i].line);
            if (i > 0 && keys[i].ends == keys[i - 1].ends && keys[i].middle == keys[i - 1].middle) {
                ++strands.back().count;
                continue;
            }
            const Line& line = lines[keys[i].line];
            const Vec a = m_picture.points[line.a], b = m_picture.points[line.b];
            strands.push_back({a, b, (b - a).abs(), line.bulge, line.a, line.b, static_cast<Id>(i), 1, false});
            Box& box = boxes.emplace_back(Box{a, a});
            box.add(b);
            box.grow(m_picture.tolerance);
        }
        const std::vector<std::uint32_t> order = m_tree.build(std::move(boxes));
        m_strands.reserve(strands.size());
        for (const std::uint32_t i : order)
            m_strands.push_back(strands[i]);
    }

    plane::Arc arcOf(Id a, Id b, double bulge) const { return {m_picture.points[a], m_picture.points[b], bulge}; }

    void meetAll()
    {
        for (Id i = 0; i < m_strands.size(); ++i) {
            const Strand& strand = m_strands[i];
            const plane::SegmentReach reach(strand.start, strand.end, 0.0); // the boxes in the tree have grown
            Box box{strand.start, strand.start};
            box.add(strand.end);
            const auto each = [&](std::uint32_t k, const Box&) { meet(i, k); };
            if (strand.bulge == 0.0)
                m_tree.visit([&](const Box& other) { return reach.meets(other); }, each, i + 1);
            else
                m_tree.visit([&](const Box& other) { return box.meets(other); }, each, i + 1);
        }
    }

    void cut(Id strand, Id point, double place)
    {
        if (point != m_strands[strand].a && point != m_strands[strand].b && place > 0.0 && place < 1.0)
            m_cuts.push_back({strand, point, place});
    }

    void meet(Id i, Id k)
    {
        Strand &s = m_strands[i], &o = m_strands[k];
        if (s.bulge != 0.0 || o.bulge != 0.0)
            return meetArcs(i, k);
        const double tolerance = m_picture.tolerance;
        const Vec d = s.end - s.start, e = o.end - o.start;
        // The distances of each one's ends from the other one's line, times its length.
        const double fromS[2] = {d.cross(o.start - s.start), d.cross(o.end - s.start)};
        const double fromO[2] = {e.cross(s.start - o.start), e.cross(s.end - o.start)};
        const double nearS = tolerance * s.length, nearO = tolerance * o.length;
        if (std::min(fromS[0], fromS[1]) > nearS || std::max(fromS[0], fromS[1]) < -nearS ||
            std::min(fromO[0], fromO[1]) > nearO || std::max(fromO[0], fromO[1]) < -nearO)
            return;
        Id common = kNone; // a point of both
        const auto touch = [&](Id strand, const Strand& own, Vec along, double distance, double reach, Id point,
                               Vec at) {
            if (std::fabs(distance) > reach)
                return;
            const double place = along.dot(at - own.start) / (own.length * own.length);
            const bool atEnd = point == own.a || point == own.b;
            if (!atEnd && !(place > 0.0 && place < 1.0))
                return;
            if (common != kNone && common != point)
                s.shared = o.shared = true;
            common = point;
            cut(strand, point, place);
        };
        touch(i, s, d, fromS[0], nearS, o.a, o.start);
        touch(i, s, d, fromS[1], nearS, o.b, o.end);
        touch(k, o, e, fromO[0], nearO, s.a, s.start);
        touch(k, o, e, fromO[1], nearO, s.b, s.end);
        if (common != kNone || (fromS[0] > 0.0) == (fromS[1] > 0.0) || (fromO[0] > 0.0) == (fromO[1] > 0.0))
            return;
        cut(i, kNone, fromO[0] / (fromO[0] - fromO[1]));
        cut(k, kNone, fromS[0] / (fromS[0] - fromS[1]));
    }

    void meetArcs(Id i, Id k)
    {
        Strand &s = m_strands[i], &o = m_strands[k];
        const plane::Meetings meetings =
            plane::meet({s.start, s.end, s.bulge}, {o.start, o.end, o.bulge}, m_picture.tolerance);
        for (int m = 0; m < meetings.count; ++m) {
            const plane::Meeting& at = meetings.points[m];
            const Id point = m_picture.points.add(at.point);
            cut(i, point, at.a);
            cut(k, point, at.b);
        }
        if (meetings.count > 1)
            s.shared = o.shared = true;
    }

    /// Cuts lines where they pass through faces of other bodies.
    void pierceAll()
    {
        const Id first = m_picture.facets.empty() ? kNone : m_picture.facets.front().body;
        if (std::all_of(m_picture.facets.begin(), m_picture.facets.end(),
                        [&](const Facet& facet) { return facet.body == first; }))
            return;
        for (Id i = 0; i < m_strands.size(); ++i) {
            const Strand& strand = m_strands[i];
            if (strand.bulge != 0.0)
                continue; // seen from its front, it pierces nothing that is not seen edge-on or cuts its whole plane
            for (Id m = strand.first; m < strand.first + strand.count; ++m) {
                const Line& line = m_picture.lines[m_members[m]];
                m_cover.forEachPierced(strand.start, line.za, strand.end, line.zb, line.body,
                                       [&](double place) { cut(i, kNone, place); });
            }
        }
    }

    /// By strand, and along each.
    void sortCuts()
    {
        m_begins.assign(m_strands.size() + 1, 0);
        for (const Cut& c : m_cuts)
            ++m_begins[c.strand];
        Id total = 0;
        for (Id& begin : m_begins)
            begin = total += begin;
        m_sorted.resize(m_cuts.size());
        for (std::size_t i = m_cuts.size(); i-- > 0;)
            m_sorted[--m_begins[m_cuts[i].strand]] = {m_cuts[i].place, m_cuts[i].point};
        for (Id i = 0; i < m_strands.size(); ++i) {
            std::sort(m_sorted.begin() + m_begins[i], m_sorted.begin() + m_begins[i + 1]);
        }
    }

    struct Part {
        Id a, b, middle;
        Id strand;
        double bulge, place;
    };

    double bulgeOf(const Strand& strand, double share) const
    {
        return strand.bulge == 0.0 ? 0.0 : std::tan(std::atan(strand.bulge) * share);
    }

    Id pointAt(const Strand& strand, double place, Id point)
    {
        return point != kNone ? point : m_picture.points.add(strand.start + (strand.end - strand.start) * place);
    }

    void cutShared(Id i, std::vector<Part>& parts)
    {
        const Strand& strand = m_strands[i];
        Id last = strand.a;
        double lastPlace = 0.0;
        const auto add = [&](double place, Id point) {
            if (point == last)
                return;
            parts.push_back({last, point, kNone, i, bulgeOf(strand, place - lastPlace), 0.5 * (place + lastPlace)});
            last = point;
            lastPlace = place;
        };
        for (Id c = m_begins[i]; c < m_begins[i + 1]; ++c)
            add(m_sorted[c].first, pointAt(strand, m_sorted[c].first, m_sorted[c].second));
        add(1.0, strand.b);
    }

    /// A strand with which nothing coincides: points are numbered only where what is seen changes.
    void cutOwn(Id i, std::vector<Piece>& result)
    {
        const Strand& strand = m_strands[i];
        const bool straight = strand.bulge == 0.0;
        const double shortest = m_picture.tolerance / strand.length;
        double lastPlace = 0.0;
        Id last = strand.a; // none if the place has no number yet
        bool open = false;  // whether the last piece is of this strand
        const auto add = [&](double place, Id point) {
            if (place - lastPlace <= shortest)
                return;
            Part part{strand.a, strand.b, kNone, i, bulgeOf(strand, place - lastPlace), 0.5 * (place + lastPlace)};
            if (!straight) {
                part.a = last;
                part.b = point;
            }
            Piece piece = seen(&part, &part + 1);
            const bool same = open && result.back().line == piece.line && result.back().visible == piece.visible;
            if (!straight || !same) {
                if (open)
                    result.back().b = last = pointAt(strand, lastPlace, last);
                piece.a = last;
                result.push_back(piece);
            }
            open = true;
            last = point;
            lastPlace = place;
        };
        for (Id c = m_begins[i]; c < m_begins[i + 1]; ++c)
            add(m_sorted[c].first, m_sorted[c].second);
        add(1.0, strand.b);
        if (open)
            result.back().b = strand.b;
    }

    std::vector<Piece> cutAll()
    {
        std::vector<Piece> result;
        result.reserve(2 * m_strands.size());
        std::vector<Part> shared;
        for (Id i = 0; i < m_strands.size(); ++i) {
            if (m_strands[i].shared)
                cutShared(i, shared);
            else
                cutOwn(i, result);
        }
        for (Part& part : shared) {
            if (part.bulge != 0.0)
                part.middle = m_picture.points.add(arcOf(part.a, part.b, part.bulge).at(0.5));
        }
        const auto key = [](const Part& p) {
            return std::pair(std::uint64_t{std::min(p.a, p.b)} << 32 | std::max(p.a, p.b), p.middle);
        };
        std::sort(shared.begin(), shared.end(), [&](const Part& a, const Part& b) {
            return key(a) != key(b) ? key(a) < key(b) : a.strand < b.strand;
        });
        for (std::size_t i = 0; i < shared.size();) {
            std::size_t end = i + 1;
            while (end < shared.size() && key(shared[end]) == key(shared[i]))
                ++end;
            result.push_back(seen(&shared[i], &shared[i] + (end - i)));
            i = end;
        }
        for (Piece& piece : result) {
            if (m_picture.lines[piece.line].reversed) {
                std::swap(piece.a, piece.b);
                piece.bulge = -piece.bulge;
                piece.place = -piece.place;
            }
        }
        return result;
    }

    /// The foremost of the lines that coincide in parts of strands. What hides it hides the others too.
    Piece seen(const Part* first, const Part* last)
    {
        Piece piece{kNone, first->a, first->b, first->bulge, 0.0, false};
        double top = -1e300;
        for (const Part* part = first; part != last; ++part) {
            const Strand& strand = m_strands[part->strand];
            for (Id m = strand.first; m < strand.first + strand.count; ++m) {
                const Line& line = m_picture.lines[m_members[m]];
                const double z = line.za + (line.zb - line.za) * part->place;
                const double ahead = z - top;
                if (ahead > m_picture.tolerance ||
                    (ahead >= -m_picture.tolerance && precedes(m_members[m], piece.line))) {
                    piece.line = m_members[m];
                    piece.a = part->a;
                    piece.b = part->b;
                    piece.bulge = part->bulge;
                    piece.place = part->place;
                }
                top = std::max(top, z);
            }
        }
        const Strand& strand = m_strands[first->strand];
        const Vec middle = piece.bulge == 0.0 ? strand.start + (strand.end - strand.start) * first->place
                                              : arcOf(first->a, first->b, first->bulge).at(0.5);
        piece.visible = !m_cover.hides(middle, top);
        return piece;
    }

    /// Of lines at one height an edge is drawn rather than a rim, a fold or a silhouette, then the first one.
    bool precedes(Id a, Id b) const
    {
        if (b == kNone)
            return true;
        const auto rank = [&](Id line) {
            switch (m_picture.sources[m_picture.lines[line].source].kind) {
            case VekLineKind::edge: return 0;
            case VekLineKind::hole: return 1;
            case VekLineKind::fold: return 2;
            default: return 3;
            }
        };
        return rank(a) != rank(b) ? rank(a) < rank(b) : a < b;
    }

    Picture& m_picture;
    Cover m_cover;
    plane::BoxTree m_tree;
    std::vector<Strand> m_strands; ///< in the order of the tree
    std::vector<Id> m_members;     ///< lines by strand
    std::vector<Cut> m_cuts;
    std::vector<Id> m_begins; ///< where the cuts of each strand begin
    std::vector<std::pair<double, Id>> m_sorted;
};

} // namespace

std::vector<Piece> piecesOf(Picture& picture)
{
    return Strands(picture).pieces();
}

} // namespace VEK::solids

/// Pieces of a picture, joined to polylines.
#include "core/solid/picture.h"

#include <algorithm>

namespace VEK::solids
{
namespace
{

/// Pieces that are one segment: parts of one line, or of one circle up to half a turn.
struct Run {
    Id a, b;
    double bulge;
    Id line;
    bool visible;
    bool used = false;
};

class Joiner
{
public:
    Joiner(const Picture& picture, const std::vector<Piece>& pieces) : m_picture(picture)
    {
        for (const Piece& piece : pieces) {
            if (m_runs.empty() || !extend(m_runs.back(), piece))
                m_runs.push_back({piece.a, piece.b, piece.bulge, piece.line, piece.visible});
        }
        indexEnds();
    }

    void collect(bool visible, CVekArrayTempl<CVekVertexArrayEx>& result)
    {
        for (Id r = 0; r < m_runs.size(); ++r) {
            if (m_runs[r].visible != visible || m_runs[r].used)
                continue;
            End at{r, false};
            for (;;) { // back to where it begins
                const End before = beyond({at.run, !at.reversed});
                if (before.run == kNone || before.run == r)
                    break;
                at = {before.run, !before.reversed};
            }
            result.append(CVekVertexArrayEx());
            CVekVertexArrayEx& polyline = result[result.len() - 1];
            const Source& source = sourceOf(m_runs[r]);
            polyline.element = source.element;
            polyline.kind = source.kind;
            for (; at.run != kNone && !m_runs[at.run].used; at = beyond(at))
                append(polyline, m_runs[at.run], at.reversed);
        }
    }

private:
    struct End { ///< a run, and whether it is walked backwards
        Id run;
        bool reversed;
    };

    const Source& sourceOf(const Run& run) const { return m_picture.sources[m_picture.lines[run.line].source]; }

    Vec point(Id p) const { return m_picture.points[p]; }

    /// Whether a way goes straight on from a through b to c.
    bool isStraight(Vec a, Vec b, Vec c) const
    {
        const Vec way = c - a, so = b - a;
        const double length = way.abs();
        return std::fabs(way.cross(so)) <= m_picture.tolerance * length && so.dot(way) < length * length;
    }

    /// Whether a piece continues a run of the same line, of a circle seen on edge, or of a true circle.
    bool extend(Run& run, const Piece& piece) const
    {
        if (run.b != piece.a || run.visible != piece.visible || run.a == piece.b ||
            m_picture.lines[run.line].source != m_picture.lines[piece.line].source)
            return false;
        if (run.bulge == 0.0 && piece.bulge == 0.0) {
            if (run.line != piece.line && !isStraight(point(run.a), point(run.b), point(piece.b)))
                return false;
            run.b = piece.b;
            return true;
        }
        const double quarter = std::atan(run.bulge) + std::atan(piece.bulge); // of the sweep
        if (run.bulge * piece.bulge <= 0.0 || std::fabs(quarter) > 0.25 * kPi + kAngleTol)
            return false;
        run.b = piece.b;
        run.bulge = std::tan(quarter);
        return true;
    }

    /// For each point the ends of runs there, as a chain.
    void indexEnds()
    {
        m_heads.assign(m_picture.points.count(), kNone);
        m_next.assign(2 * m_runs.size(), kNone);
        for (Id i = 0; i < m_next.size(); ++i) {
            const Run& run = m_runs[i / 2];
            Id& head = m_heads[i % 2 == 0 ? run.a : run.b];
            m_next[i] = head;
            head = i;
        }
    }

    bool belong(const Run& a, const Run& b) const
    {
        const Source &s = sourceOf(a), &o = sourceOf(b);
        return a.visible == b.visible && s.kind == o.kind && s.element == o.element;
    }

    /// The run that continues another one at its end, if there is exactly one.
    End beyond(End at) const
    {
        const Run& own = m_runs[at.run];
        const Id self = 2 * at.run + (at.reversed ? 0 : 1);
        End found{kNone, false};
        for (Id i = m_heads[at.reversed ? own.a : own.b]; i != kNone; i = m_next[i]) {
            if (i == self || !belong(own, m_runs[i / 2]))
                continue;
            if (found.run != kNone)
                return {kNone, false};
            found = {i / 2, i % 2 == 1};
        }
        return found;
    }

    void append(CVekVertexArrayEx& polyline, Run& run, bool reversed)
    {
        const Vec a = point(reversed ? run.b : run.a), b = point(reversed ? run.a : run.b);
        run.used = true;
        if (polyline.len() > 0 && run.bulge == 0.0 && polyline[-1].bulge == 0.0) {
            const CVekPoint3d& start = polyline[-1].start;
            if (isStraight({start[0], start[1]}, a, b)) {
                polyline[-1].end.set(b.x, b.y, 0.0);
                return;
            }
        }
        polyline.append({{a.x, a.y, 0.0}, {b.x, b.y, 0.0}, reversed ? -run.bulge : run.bulge});
    }

    const Picture& m_picture;
    std::vector<Run> m_runs;
    std::vector<Id> m_heads;
    std::vector<Id> m_next;
};

} // namespace

void joinPieces(const Picture& picture, const std::vector<Piece>& pieces, CVekArrayTempl<CVekVertexArrayEx>& visible,
                CVekArrayTempl<CVekVertexArrayEx>& hidden)
{
    Joiner joiner(picture, pieces);
    joiner.collect(true, visible);
    joiner.collect(false, hidden);
}

} // namespace VEK::solids

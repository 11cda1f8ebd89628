// What painting and picking read instead of the items, which are large: a short row and a box for each.
#pragma once

#include "display/fetch.h"

#include <cstdint>
#include <deque>
#include <limits>
#include <span>
#include <unordered_map>
#include <vector>

namespace VEK
{

/// Whether a matrix changes nothing; its last row plays no part. Most items have no other, so there is no branch, and
/// no call.
inline bool isIdentity(const CVekMatrix3d& m)
{
    const CVekMatrix3d::Rows& rows = m;
    bool is = true;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            is &= rows[row][column] == (row == column ? 1.0 : 0.0);
    }
    return is;
}

/// The index of a list, by the numbers under which its items are stored. It is filled in as items are drawn and picked,
/// and what an item changes is forgotten; so it costs nothing where nothing is looked at, and never a pass of its own.
///
/// Rows are made for polylines of straight, joined segments in continuous lines, which is what pictures of this trade
/// consist of, and for their texts. Everything else is drawn from its item.
class DisplayIndex
{
public:
    /// Where an item reaches in x and y, rounded outwards; in all directions if that is not known.
    struct Box {
        static constexpr float kAll = std::numeric_limits<float>::infinity();

        float left = -kAll, bottom = -kAll, right = kAll, top = kAll;

        static Box none() { return {kAll, kAll, -kAll, -kAll}; }
        void add(const CVekPoint3d& p);
        bool isKnown() const { return left != -kAll; }
        bool isBounded() const { return (left > -kAll) & (bottom > -kAll) & (right < kAll) & (top < kAll); }

        // Without branches: of items all over a picture nobody can tell what comes next.
        bool isBeside(const Box& other) const
        {
            return (left > other.right) | (right < other.left) | (bottom > other.top) | (top < other.bottom);
        }
        bool isWithin(const Box& other) const
        {
            return (left >= other.left) & (right <= other.right) & (bottom >= other.bottom) & (top <= other.top);
        }
    };

    enum class Kind : std::uint8_t { unknown, nothing, item, text, line, flatLine };

    /// How an item is drawn.
    struct Row {
        unsigned first = 0;  ///< of the coordinates of its points: x, y and z, of a flat line x and y, since z is 0;
                             ///< of a text its number
        unsigned matrix = 0; ///< number of its matrix; 0: none
        std::uint16_t count = 0; ///< of its points
        std::uint8_t look = 0;
        Kind kind = Kind::unknown;

        bool isLine() const { return kind >= Kind::line; }
    };
    static constexpr unsigned kPoints = 4000; ///< of the longest polyline that has a row
    static constexpr unsigned kLooks = 256;

    /// What the pen of an item depends on.
    struct Look {
        unsigned color; ///< as a `COLORREF`; 0 unless the colour mode is that of items of their own colour
        int thickn;
        unsigned mode; ///< colour mode; an item without a colour of its own is drawn in the inverse of the background
    };

    /// A contour of a glyph.
    struct Contour {
        std::uint16_t count; ///< of its points
        bool beginsGlyph;    ///< as its outer contour
        bool isClosed;       ///< so that the glyph has a body
    };

    /// A text of flat glyphs without arcs. Its matrix is its own, since hardly two texts share one.
    struct Text {
        CVekMatrix3d mtx;
        bool moves;          ///< whether the matrix changes anything
        std::size_t first;   ///< of the coordinates: x and y of the points, one contour after the other
        std::size_t size;    ///< number of its coordinates
        std::size_t contour; ///< the first one
        std::size_t count;   ///< of its contours
    };

    /// The extents of stored items that follow one another.
    struct Extents {
        CVekPoint3d min, max;
        bool any = false;
        bool isKnown = false;
    };
    static constexpr int kMeasured = 256; ///< number of items

    /// Follows a list that has grown.
    void resize(int count);

    /// Begins to paint: forgets what depends on another view direction.
    void beginPaint(const CVekMatrix3d& viewDirection, bool turns);
    void beginPick() { m_world.resize(m_count); }

    /// Whether anything can be picked within a box, as far as is known.
    bool mayPick(const Box& box) const;

    /// The first numbers of the paths, of which those of items without a path mean nothing.
    const int* paths(const CVekDisplayItem* items);
    void setPath(int number, int first);

    /// Forgets extents that were measured by another view.
    void measureBy(const CVekMatrix3d& view);
    Extents& extents(int first) { return m_extents[static_cast<std::size_t>(first / kMeasured)]; }
    void forgetExtents() { m_extents.clear(); }

    const Row& row(int number) const { return m_rows[static_cast<std::size_t>(number)]; }

    /// Prefetches what belongs to an item here.
    void fetchRow(int number) const
    {
        fetch(&row(number), 1);
        fetch(&shown(number), 1);
    }

    /// Where a line with a row reaches, after the view direction and its own matrix.
    const Box& shown(int number) const { return (m_turns ? m_turned : m_world)[static_cast<std::size_t>(number)]; }

    /// Looks at an item for its row.
    const Row& learn(int number, const CVekDisplayItem& item);
    void forget(int number);

    /// Where the part of an item that can be picked reaches in the world.
    const Box& world(int number) const { return m_world[static_cast<std::size_t>(number)]; }
    void learnWorld(int number, const CVekDisplayItem& item);

    const double* coordinates(const Row& row) const { return m_coordinates.data() + row.first; }
    const double* coordinates(const Text& text) const { return m_coordinates.data() + text.first; }
    const Text& text(const Row& row) const { return m_texts[row.first]; }
    std::span<const Contour> contours(const Text& text) const { return {&m_contours[text.contour], text.count}; }
    const CVekMatrix3d& matrix(unsigned number) const { return m_matrices[number - 1]; }
    const std::vector<Look>& looks() const { return m_looks; }

private:
    struct MatrixHash {
        std::size_t operator()(const CVekMatrix3d* m) const;
    };
    struct MatrixEqual {
        bool operator()(const CVekMatrix3d* a, const CVekMatrix3d* b) const;
    };

    void forgetRows();
    static bool isPlain(const CVekDisplayItem& item);
    bool setLine(Row& row, Box& box, const CVekDisplayItem& item);
    bool setText(Row& row, const CVekDisplayItem& item);
    std::size_t coordinateCount(const Row& row) const;
    bool setLook(Row& row, const CVekDisplayItem& item);
    bool setMatrix(Row& row, const CVekMatrix3d& mtx);

    std::size_t m_count = 0;
    std::vector<Row> m_rows;
    std::vector<Box> m_world;  ///< of what can be picked
    std::vector<Box> m_turned; ///< of what is shown, if the view direction turns it; otherwise the two are the same
    std::vector<int> m_paths;
    std::vector<Extents> m_extents;
    CVekMatrix3d m_view;      ///< by which they were measured
    CVekMatrix3d m_direction; ///< the view direction after which the coordinates are
    bool m_turns = false;

    std::vector<double> m_coordinates;
    std::size_t m_forgotten = 0; ///< of the coordinates, those that no row has any more
    std::vector<Text> m_texts;
    std::vector<Contour> m_contours;

    std::vector<Look> m_looks;
    std::unordered_map<std::uint64_t, unsigned> m_lookNumbers;
    std::deque<CVekMatrix3d> m_matrices; ///< each once
    std::unordered_map<const CVekMatrix3d*, unsigned, MatrixHash, MatrixEqual> m_matrixNumbers;
};

} // namespace VEK

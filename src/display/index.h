// What painting and picking read instead of the items, which are large: a short row and a box for each.
#pragma once

#include <vek/display/item.h>

#include <cstdint>
#include <deque>
#include <limits>
#include <memory>
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
/// consist of. Everything else is drawn from its item.
class DisplayIndex
{
public:
    /// Where an item reaches in x and y, rounded outwards; in all directions if that is not known.
    struct Box {
        static constexpr float kAll = std::numeric_limits<float>::infinity();

        float left = -kAll, bottom = -kAll, right = kAll, top = kAll;

        bool isKnown() const { return left != -kAll; }
        bool isBeside(const Box& other) const
        {
            return (left > other.right) | (right < other.left) | (bottom > other.top) | (top < other.bottom);
        }
        bool isWithin(const Box& other) const
        {
            return (left >= other.left) & (right <= other.right) & (bottom >= other.bottom) & (top <= other.top);
        }

        void add(const CVekPoint3d& p);
        static Box none() { return {kAll, kAll, -kAll, -kAll}; }
    };

    enum class Kind : unsigned { unknown, nothing, item, line };

    /// How an item is drawn.
    struct Row {
        unsigned first;  ///< of the coordinates of its points
        unsigned matrix; ///< number of its matrix; 0: none
        unsigned look : 16;
        unsigned count : 13; ///< of its points
        unsigned kind : 2;   ///< `Kind`
        unsigned isFlat : 1; ///< z is 0 and not stored

        Kind is() const { return static_cast<Kind>(kind); }
    };
    static constexpr unsigned kPoints = 4000; ///< longest polyline that has a row

    /// What the pen of an item depends on.
    struct Look {
        unsigned color; ///< as a `COLORREF`; 0 unless the colour mode is that of items of their own colour
        int thickn;
        unsigned mode; ///< colour mode; an item without a colour of its own is drawn in the inverse of the background
    };

    /// Follows a list that has grown.
    void resize(int count);

    /// Forgets what depends on another view direction.
    void turn(const CVekMatrix3d& viewDirection, bool turns);

    const Row& row(int number) const { return m_rows[static_cast<std::size_t>(number)]; }

    /// Where a line with a row reaches, after the view direction and its own matrix.
    const Box& shown(int number) const { return (m_turns ? m_turned : m_world)[static_cast<std::size_t>(number)]; }

    /// Looks at an item for its row.
    const Row& learn(int number, const CVekDisplayItem& item);
    void forget(int number);

    /// Where the part of an item that can be picked reaches in the world.
    const Box& world(int number) const { return m_world[static_cast<std::size_t>(number)]; }
    void learnWorld(int number, const CVekDisplayItem& item);

    const double* coordinates(const Row& row) const { return m_blocks[row.first / kBlock].get() + row.first % kBlock; }
    const CVekMatrix3d& matrix(const Row& row) const { return m_matrices[row.matrix - 1]; }
    const std::vector<Look>& looks() const { return m_looks; }

private:
    static constexpr unsigned kBlock = 1u << 16; ///< coordinates

    struct MatrixHash {
        std::size_t operator()(const CVekMatrix3d* m) const;
    };
    struct MatrixEqual {
        bool operator()(const CVekMatrix3d* a, const CVekMatrix3d* b) const;
    };

    void forgetRows();
    static bool isPlain(const CVekDisplayItem& item);
    bool setLine(Row& row, Box& box, const CVekDisplayItem& item);
    bool setLook(Row& row, const CVekDisplayItem& item);
    bool setMatrix(Row& row, const CVekMatrix3d& mtx);
    double* room(Row& row, unsigned size);

    std::vector<Row> m_rows;
    std::vector<Box> m_world;  ///< of what can be picked
    std::vector<Box> m_turned; ///< of what is shown, if the view direction turns it; otherwise the two are the same
    CVekMatrix3d m_direction;  ///< the view direction after which the coordinates are
    bool m_turns = false;

    std::vector<std::unique_ptr<double[]>> m_blocks; ///< of coordinates; a polyline lies within one
    unsigned m_size = 0, m_used = 0;                 ///< of the last block
    std::size_t m_forgotten = 0;                     ///< coordinates that no row has any more

    std::vector<Look> m_looks;
    std::unordered_map<std::uint64_t, unsigned> m_lookNumbers;
    std::deque<CVekMatrix3d> m_matrices; ///< each once
    std::unordered_map<const CVekMatrix3d*, unsigned, MatrixHash, MatrixEqual> m_matrixNumbers;
};

} // namespace VEK

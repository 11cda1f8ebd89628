#include <vek/values/polyline.h>
#include <vek/values/string.h>

#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

/// Counts what happens to it.
struct Counted {
    static inline int copies = 0;
    static inline int moves = 0;
    static inline int alive = 0;

    int value = 0;

    Counted() { ++alive; }
    explicit Counted(int v) : value(v) { ++alive; }
    Counted(const Counted& other) : value(other.value) { ++alive, ++copies; }
    Counted(Counted&& other) noexcept : value(other.value) { ++alive, ++moves; }
    Counted& operator=(const Counted& other)
    {
        value = other.value;
        ++copies;
        return *this;
    }
    Counted& operator=(Counted&& other) noexcept
    {
        value = other.value;
        ++moves;
        return *this;
    }
    ~Counted() { --alive; }

    static void reset() { copies = moves = 0; }
};

/// A class of a user without a move of its own, whose short texts point into itself.
struct CopyOnly {
    static inline int built = 0;
    static inline int failsAt = -1; ///< which assignment throws

    std::string text;

    CopyOnly() = default;
    CopyOnly(const char* t) : text(t) {}
    CopyOnly(const CopyOnly& other) : text(other.text) { ++built; }
    CopyOnly& operator=(const CopyOnly& other)
    {
        if (failsAt >= 0 && failsAt-- == 0)
            throw std::runtime_error("full");
        text = other.text;
        return *this;
    }
    ~CopyOnly() {}
};

using Ints = CVekArrayTempl<int>;

} // namespace

TEST(ArrayIndex, CountsFromTheEndAndBeyondModuloTheLength)
{
    Ints array({10, 11, 12});
    const Ints& reading = array;
    for (const int index : {-1, -2, -3, -4, -7, INT_MIN, INT_MIN + 1}) {
        const int expected = 10 + static_cast<int>((std::int64_t{index} + (std::int64_t{3} << 40)) % 3);
        EXPECT_TRUE(array[index] == expected && reading[index] == expected) << index;
    }
    for (const int index : {3, 5, INT_MAX})
        EXPECT_EQ(reading[index], 0);
    EXPECT_EQ(array.len(), 3);
    EXPECT_EQ(array[5], 0); // writing access grows
    array[6] = 7;
    EXPECT_TRUE(array == Ints({10, 11, 12, 0, 0, 0, 7}));

    CVekArrayTempl<char> none;
    for (const int index : {-1, INT_MAX}) { // more than an int counts
        none[index] = 'x';
        EXPECT_EQ(none[index], '\0');
    }
    EXPECT_EQ(none.len(), 0);
}

TEST(ArrayGrowth, CopiesNoElement)
{
    {
        CVekArrayTempl<Counted> array;
        Counted::reset();
        for (int i = 0; i < 1000; ++i)
            array.append(Counted(i));
        EXPECT_EQ(Counted::copies, 0);
        // 8 + 16 + ... + 512 elements are taken along, and each one comes in by one or two moves.
        EXPECT_LE(Counted::moves, 1016 + 2 * 1000);
        for (int i = 0; i < 1000; ++i)
            ASSERT_EQ(array[i].value, i);
        array[2000].value = 1;
        EXPECT_EQ(Counted::copies, 0);
    }
    EXPECT_EQ(Counted::alive, 0);
}

/// Its name points into itself, whatever its base says of bytes.
struct Named : CVekVertex {
    std::string name;
};

TEST(ArrayGrowth, MovesBytesOfMarkedTypesOnly)
{
    static_assert(kVekMovesAsBytes<CVekVertex> && kVekMovesAsBytes<CVekArrayTempl<Named>>);
    static_assert(!kVekMovesAsBytes<Named> && !kVekMovesAsBytes<CopyOnly>);
    CVekArrayTempl<Named> array;
    CVekArrayTempl<CVekArrayTempl<Named>> nested;
    CVekArrayTempl<CopyOnly> assigned;
    for (int i = 0; i < 100; ++i) {
        array[i].name = std::to_string(i);
        nested[i][0].name = std::to_string(i);
        assigned[i].text = std::to_string(i);
    }
    EXPECT_EQ(CopyOnly::built, 0) << "assigned to slots that were built by default";
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(array[i].name, std::to_string(i));
        EXPECT_EQ(nested[i][0].name, std::to_string(i));
        EXPECT_EQ(assigned[i].text, std::to_string(i));
    }
}

TEST(ArrayGrowth, StaysSoundWhenAnElementThrows)
{
    for (int at = 0; at < 12; ++at) {
        CVekArrayTempl<CopyOnly> array{"0", "1", "2", "3", "4", "5", "6", "7"};
        CopyOnly::failsAt = at; // the ninth takes eight assignments to new slots and one of its own
        bool threw = false;
        try {
            array.append(CopyOnly("8"));
        } catch (const std::runtime_error&) {
            threw = true;
        }
        CopyOnly::failsAt = -1;
        EXPECT_EQ(threw, at < 9);
        ASSERT_EQ(array.len(), threw ? 8 : 9);
        for (int i = 0; i < array.len(); ++i)
            EXPECT_EQ(array[i].text, std::to_string(i));
    }
}

TEST(ArrayLength, NewElementsAreDefaultAlsoWhereOldOnesStood)
{
    Ints array({1, 2, 3});
    EXPECT_EQ(array.setLogicalLength(1), 1);
    EXPECT_EQ(array.setLogicalLength(3), 3);
    EXPECT_TRUE(array == Ints({1, 0, 0}));
    EXPECT_EQ(array.setLogicalLength(-4), 0);
    CVekArray& base = array;
    EXPECT_EQ(base.setLogicalLength(2), 2);
    EXPECT_EQ(base.len(), 2);
}

TEST(ArrayAppend, TakesItsOwnElementsWithAndWithoutRoom)
{
    CVekArrayTempl<CVekString> texts;
    texts.append(L"a text that is longer than any small buffer");
    for (int i = 0; i < 100; ++i)
        texts.append(texts[i / 2]);
    for (int i = 0; i < 27; ++i)
        texts.append(std::move(texts[-1])); // up to 128, where no room is left
    EXPECT_EQ(texts[-1].len(), 43);

    Ints array({1, 2, 3, 4, 5}), other({9});
    array += array;
    EXPECT_TRUE(array == Ints({1, 2, 3, 4, 5, 1, 2, 3, 4, 5}));
    array += other;
    array += std::move(other);
    EXPECT_EQ(other.len(), 0);
    array += std::move(array);
    EXPECT_TRUE(array.len() == 12 && array[-2] == 9 && array[-1] == 9);
}

TEST(ArrayAssign, IsDeepAndBearsItself)
{
    CVekArrayTempl<Ints> array;
    array[1] = Ints({1, 2});
    CVekArrayTempl<Ints> copy = array;
    copy[1][0] = 7;
    const CVekArrayTempl<Ints>& self = array;
    array = self;
    EXPECT_TRUE(array.len() == 2 && array[1] == Ints({1, 2}));
    array = copy;
    const CVekArrayTempl<Ints> taken = std::move(array);
    EXPECT_EQ(taken[1][0], 7);
}

TEST(ArrayOrder, RemovesSearchesSortsAndReverses)
{
    Ints array({3, 1, 2});
    for (const int index : {0, 5, -1})
        array.removeAt(index);
    EXPECT_TRUE(array == Ints({1}));
    int index = 17;
    EXPECT_FALSE(array.indexOf(4, index));
    EXPECT_EQ(index, 17);
    EXPECT_TRUE(array.indexOf(1, index));
    EXPECT_EQ(index, 0);

    std::mt19937 random(1);
    std::vector<int> expected;
    for (int i = 0; i < 1000; ++i) {
        expected.push_back(static_cast<int>(random() % 500));
        array[i] = expected.back();
    }
    std::sort(expected.begin(), expected.end());
    array.sort();
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), array.begin(), array.end()));
    array.revert();
    EXPECT_TRUE(std::equal(expected.rbegin(), expected.rend(), array.begin(), array.end()));
}

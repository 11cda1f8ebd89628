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

/// Counts its copies.
struct Counted {
    static inline int copies = 0;

    int value = 0;

    Counted() = default;
    explicit Counted(int v) : value(v) {}
    Counted(const Counted& other) : value(other.value) { ++copies; }
    Counted(Counted&&) noexcept = default;
    Counted& operator=(const Counted& other)
    {
        value = other.value;
        ++copies;
        return *this;
    }
    Counted& operator=(Counted&&) noexcept = default;
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

template <class T>
T valueOf(unsigned number)
{
    static constexpr char kText[64] = {};
    if constexpr (std::is_same_v<T, const char*>)
        return kText + number % 64;
    else if constexpr (std::is_same_v<T, CVekPoint3d>)
        return {1.0 * number, 2.0, -1.0 * number};
    else if constexpr (std::is_same_v<T, CVekString>)
        return T(std::to_wstring(number).c_str());
    else if constexpr (std::is_same_v<T, Ints>)
        return number % 2 ? Ints{static_cast<int>(number)} : Ints{1, 2, static_cast<int>(number)};
    else
        return static_cast<T>(number);
}

/// Runs random operations on three arrays and on vectors.
/// @return how many states were compared
template <class T>
int compareWithVectors(unsigned seed, int rounds)
{
    std::mt19937 random(seed);
    CVekArrayTempl<T> arrays[3];
    std::vector<T> vectors[3];
    int compared = 0;
    for (int round = 0; round < rounds; ++round) {
        const unsigned i = random() % 3, j = random() % 3, length = random() % 12;
        CVekArrayTempl<T>&a = arrays[i], &b = arrays[j];
        std::vector<T>&v = vectors[i], &w = vectors[j];
        const T value = valueOf<T>(random() % 1000);
        const int at = v.empty() ? 0 : static_cast<int>(random() % v.size());
        const bool isEmpty = v.empty(), isSelf = i == j;
        switch (random() % 16) {
        case 0: a.append(value), v.push_back(value); break;
        case 1:
            if (!isEmpty)
                a.append(std::as_const(a)[at]), v.push_back(T(v[static_cast<unsigned>(at)]));
            break;
        case 2: // what was moved away is written anew
            if (!isEmpty) {
                v.push_back(T(v[static_cast<unsigned>(at)]));
                a.append(std::move(a[at]));
                a[at] = v[static_cast<unsigned>(at)] = value;
            }
            break;
        case 3:
            if (v.size() < 40) {
                const std::vector<T> more(w);
                a += b, v.insert(v.end(), more.begin(), more.end());
            }
            break;
        case 4:
            if (!isSelf && v.size() < 40)
                a += std::move(b), v.insert(v.end(), w.begin(), w.end()), w.clear();
            break;
        case 5: a = b, v = std::vector<T>(w); break;
        case 6:
            a = std::move(b);
            if (!isSelf)
                v = w, b = CVekArrayTempl<T>{value}, w = {value};
            break;
        case 7: a.swap(b), v.swap(w); break;
        case 8:
            EXPECT_EQ(a.setLogicalLength(static_cast<int>(length)), static_cast<int>(length));
            v.resize(length);
            break;
        case 9:
            a.removeAt(at);
            if (!isEmpty)
                v.erase(v.begin() + at);
            break;
        case 10:
            a[static_cast<int>(length)] = value;
            v.resize(std::max(v.size(), std::size_t{length} + 1));
            v[length] = value;
            break;
        case 11: b = CVekArrayTempl<T>(a), w = std::vector<T>(v); break;
        case 12: {
            CVekArrayTempl<T> taken(std::move(a));
            EXPECT_EQ(a.len(), 0);
            a.append(value);
            a = std::move(taken);
            break;
        }
        case 13: EXPECT_TRUE(a.reserveExactly(static_cast<int>(length))); break;
        case 14:
            if (bool isNew = false; T* slot = a.spare(isNew)) {
                EXPECT_TRUE(!isNew || *slot == T());
                *slot = value;
                a.appendSpare();
                v.push_back(value);
            }
            break;
        default: a.revert(), std::reverse(v.begin(), v.end());
        }
        for (int k = 0; k < 3; ++k, ++compared) {
            const CVekArrayTempl<T>& array = arrays[k];
            EXPECT_TRUE(std::equal(array.begin(), array.end(), vectors[k].begin(), vectors[k].end())) << round;
            EXPECT_TRUE(array[array.len()] == T() && array[-1] == (array.len() ? vectors[k].back() : T())) << round;
        }
        if (testing::Test::HasFailure())
            break;
    }
    return compared;
}

} // namespace

TEST(ArrayGrowth, AgreesWithVectorsForElementsInsideAndInBlocks)
{
    static_assert(sizeof(Ints) == 3 * sizeof(void*));
    constexpr int kRounds = 4000;
    int compared = 0;
    for (const unsigned seed : {1u, 2u}) {
        compared += compareWithVectors<int>(seed, kRounds) + compareWithVectors<double>(seed, kRounds) +
                    compareWithVectors<unsigned char>(seed, kRounds) + compareWithVectors<const char*>(seed, kRounds) +
                    compareWithVectors<CVekPoint3d>(seed, kRounds) + compareWithVectors<CVekString>(seed, kRounds) +
                    compareWithVectors<Ints>(seed, kRounds);
    }
    EXPECT_EQ(compared, 2 * 7 * 3 * kRounds);
}

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
    CVekArray& base = array;
    EXPECT_TRUE(base.setLogicalLength(-4) == 0 && base.setLogicalLength(2) == 2 && base.len() == 2);
}

TEST(ArrayGrowth, CopiesNoElement)
{
    CVekArrayTempl<Counted> array;
    for (int i = 0; i < 1000; ++i)
        array.append(Counted(i));
    array[2000].value = 1;
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(array[i].value, i);
    EXPECT_EQ(Counted::copies, 0);
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

TEST(ArrayOrder, RemovesSearchesSortsAndReverses)
{
    Ints array({3, 1, 2});
    for (const int index : {0, 5, -1})
        array.removeAt(index);
    int index = 17;
    EXPECT_TRUE(array == Ints({1}) && !array.indexOf(4, index) && index == 17);
    EXPECT_TRUE(array.indexOf(1, index) && index == 0);

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

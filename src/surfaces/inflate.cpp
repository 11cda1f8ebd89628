#include "surfaces/inflate.h"

#include <array>
#include <cstdint>
#include <span>

namespace VEK
{
namespace
{

constexpr int kMaxBits = 15;
constexpr std::size_t kMaxSymbols = 288;
constexpr int kBad = -1;

/// A canonical Huffman code: how many symbols there are of each length, and the symbols in order.
class Code
{
public:
    /// @return false when the lengths ask for more codes than there are
    bool make(std::span<const unsigned char> lengths)
    {
        count.fill(0);
        for (const unsigned char length : lengths)
            ++count[length];
        count[0] = 0;
        int left = 1;
        std::array<int, kMaxBits + 2> offset{};
        for (std::size_t length = 1; length <= kMaxBits; ++length) {
            left = left * 2 - count[length];
            if (left < 0)
                return false;
            offset[length + 1] = offset[length] + count[length];
        }
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            if (lengths[i] != 0)
                symbol[static_cast<std::size_t>(offset[lengths[i]]++)] = static_cast<std::uint16_t>(i);
        }
        return true;
    }

    std::array<int, kMaxBits + 1> count;
    std::array<std::uint16_t, kMaxSymbols> symbol;
};

/// @param base, extra the first value of a symbol and the bits that are added to it
struct Step {
    std::uint16_t base;
    unsigned char extra;
};

constexpr std::array<Step, 29> kLengths = {{{3, 0},   {4, 0},   {5, 0},   {6, 0},   {7, 0},  {8, 0},  {9, 0},  {10, 0},
                                            {11, 1},  {13, 1},  {15, 1},  {17, 1},  {19, 2}, {23, 2}, {27, 2}, {31, 2},
                                            {35, 3},  {43, 3},  {51, 3},  {59, 3},  {67, 4}, {83, 4}, {99, 4}, {115, 4},
                                            {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}}};
constexpr std::array<Step, 30> kDistances = {
    {{1, 0},     {2, 0},     {3, 0},     {4, 0},      {5, 1},      {7, 1},     {9, 2},     {13, 2},
     {17, 3},    {25, 3},    {33, 4},    {49, 4},     {65, 5},     {97, 5},    {129, 6},   {193, 6},
     {257, 7},   {385, 7},   {513, 8},   {769, 8},    {1025, 9},   {1537, 9},  {2049, 10}, {3073, 10},
     {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}}};

class Inflater
{
public:
    Inflater(std::string_view packed, std::size_t size, std::string& result)
        : m_packed(packed), m_size(size), m_result(result)
    {
    }

    bool run()
    {
        for (bool last = false; !last && m_result.size() < m_size;) {
            last = bits(1) == 1;
            const int kind = bits(2);
            if (kind == 0 ? !stored() : kind == 1 ? !fixed() : kind != 2 || !dynamic())
                return false;
        }
        return m_result.size() >= m_size;
    }

private:
    /// Bits of the packed data, the first lowest; kBad at its end.
    int bits(int count)
    {
        while (m_held < count) {
            if (m_at == m_packed.size())
                return kBad;
            m_bits |= std::uint32_t{static_cast<unsigned char>(m_packed[m_at++])} << m_held;
            m_held += 8;
        }
        const int value = static_cast<int>(m_bits & ((1u << count) - 1));
        m_bits >>= count;
        m_held -= count;
        return value;
    }

    int decode(const Code& code)
    {
        int value = 0, first = 0, index = 0;
        for (std::size_t length = 1; length <= kMaxBits; ++length) {
            const int bit = bits(1);
            if (bit == kBad)
                return kBad;
            value |= bit;
            if (value - first < code.count[length])
                return code.symbol[static_cast<std::size_t>(index + value - first)];
            index += code.count[length];
            first = (first + code.count[length]) * 2;
            value *= 2;
        }
        return kBad;
    }

    bool stored()
    {
        m_bits = 0; // to the next whole byte; fewer than 8 bits are held here
        m_held = 0;
        const int length = bits(16);
        const int inverse = bits(16);
        if (length == kBad || inverse != (length ^ 0xFFFF) || m_packed.size() - m_at < std::size_t(length))
            return false;
        m_result.append(m_packed.substr(m_at, static_cast<std::size_t>(length)));
        m_at += static_cast<std::size_t>(length);
        return true;
    }

    bool fixed()
    {
        std::array<unsigned char, kMaxSymbols> lengths;
        for (std::size_t i = 0; i < lengths.size(); ++i)
            lengths[i] = i < 144 ? 8 : i < 256 ? 9 : i < 280 ? 7 : 8;
        std::array<unsigned char, 30> distances;
        distances.fill(5);
        return m_literals.make(lengths) && m_distances.make(distances) && codes();
    }

    bool dynamic()
    {
        const int literals = bits(5) + 257;
        const int distances = bits(5) + 1;
        const int described = bits(4) + 4;
        if (literals > 286 || distances > 30)
            return false;
        static constexpr unsigned char kOrder[19] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
        std::array<unsigned char, 320> lengths{};
        for (int i = 0; i < described; ++i) {
            const int length = bits(3);
            if (length == kBad)
                return false;
            lengths[kOrder[i]] = static_cast<unsigned char>(length);
        }
        Code code;
        if (!code.make(std::span(lengths).first(19)))
            return false;
        lengths.fill(0);
        const std::size_t all = static_cast<std::size_t>(literals) + static_cast<std::size_t>(distances);
        for (std::size_t at = 0; at < all;) {
            const int symbol = decode(code);
            if (symbol == kBad)
                return false;
            if (symbol < 16) {
                lengths[at++] = static_cast<unsigned char>(symbol);
                continue;
            }
            if (symbol == 16 && at == 0)
                return false;
            const unsigned char repeated = symbol == 16 ? lengths[at - 1] : 0;
            const int times = symbol == 16 ? 3 + bits(2) : symbol == 17 ? 3 + bits(3) : 11 + bits(7);
            for (int i = 0; i < times; ++i) {
                if (at == all)
                    return false;
                lengths[at++] = repeated;
            }
        }
        const auto list = std::span(lengths).first(all);
        return m_literals.make(list.first(static_cast<std::size_t>(literals))) &&
               m_distances.make(list.subspan(static_cast<std::size_t>(literals))) && codes();
    }

    /// A value of a step table; kBad when there is none.
    template <std::size_t N>
    int stepped(const std::array<Step, N>& steps, int symbol)
    {
        if (symbol < 0 || std::size_t(symbol) >= N)
            return kBad;
        const Step& step = steps[static_cast<std::size_t>(symbol)];
        const int more = bits(step.extra);
        return more == kBad ? kBad : step.base + more;
    }

    bool codes()
    {
        while (m_result.size() < m_size) {
            const int symbol = decode(m_literals);
            if (symbol == 256)
                return true;
            if (symbol == kBad)
                return false;
            if (symbol < 256) {
                m_result += static_cast<char>(symbol);
                continue;
            }
            const int length = stepped(kLengths, symbol - 257);
            const int distance = length == kBad ? kBad : stepped(kDistances, decode(m_distances));
            if (distance == kBad || std::size_t(distance) > m_result.size())
                return false;
            for (int i = 0; i < length; ++i)
                m_result += m_result[m_result.size() - static_cast<std::size_t>(distance)];
        }
        return true;
    }

    std::string_view m_packed;
    std::size_t m_size;
    std::string& m_result;
    std::size_t m_at = 0;
    std::uint32_t m_bits = 0;
    int m_held = 0;
    Code m_literals;
    Code m_distances;
};

} // namespace

bool inflate(std::string_view packed, std::size_t size, std::string& result)
{
    result.clear();
    if (packed.size() < 2 || (packed[0] & 15) != 8 || (packed[1] & 32) != 0) // deflate, no dictionary
        return false;
    result.reserve(size + 258); // as far as the last copy can go
    return Inflater(packed.substr(2), size, result).run();
}

} // namespace VEK

/// @file
/// Slides built byte by byte, and what a reader tells of them.
#pragma once

#include <vek/pictures.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace slide_test
{

using Bytes = std::vector<unsigned char>;

/// What was told, one text for each record: "L 1,2 3,4", "C 5", "F 1,1 2,2 1,1".
class Log : public VEK::SlideVisitor
{
public:
    std::vector<std::string> records;
    int hiX = -1;
    int hiY = -1;

    bool start(int x, int y) override
    {
        hiX = x;
        hiY = y;
        return true;
    }
    void line(VEK::SlidePoint from, VEK::SlidePoint to) override { records.push_back("L" + text(from) + text(to)); }
    void color(int index) override { records.push_back("C " + std::to_string(index)); }
    void fill(std::span<const VEK::SlidePoint> points) override
    {
        records.push_back("F");
        for (const VEK::SlidePoint& point : points)
            records.back() += text(point);
    }

    static std::string text(VEK::SlidePoint point)
    {
        return " " + std::to_string(point.x) + "," + std::to_string(point.y);
    }
};

inline void operator+=(Bytes& bytes, std::initializer_list<int> more)
{
    for (const int value : more)
        bytes.push_back(static_cast<unsigned char>(value));
}

/// The header of a level 2 slide of 256 by 512 with little-endian words.
inline Bytes littleHeader()
{
    Bytes bytes(18, 'x');
    bytes += {2, 0x00, 0x01, 0x00, 0x02, 0, 0, 0, 0, 0, 0, 0x34, 0x12};
    return bytes;
}

inline Bytes bigHeader()
{
    Bytes bytes(18, 'x');
    bytes += {2, 0x01, 0x00, 0x02, 0x00, 0, 0, 0, 0, 0, 0, 0x12, 0x34};
    return bytes;
}

/// The header of a level 1 slide, its highest point the four given bytes.
inline Bytes oldHeader(std::initializer_list<int> highest)
{
    Bytes bytes(18, 'x');
    bytes += {1};
    bytes += highest;
    bytes.resize(34);
    return bytes;
}

/// Little-endian words behind a header.
inline Bytes withWords(Bytes bytes, std::initializer_list<int> words)
{
    for (const int word : words)
        bytes += {word, word >> 8};
    return bytes;
}

inline std::vector<std::string> read(const Bytes& slide)
{
    Log log;
    VEK::SlideReader().read(slide, log);
    return log.records;
}

} // namespace slide_test

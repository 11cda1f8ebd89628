#include <vek/pictures/slide.h>
#include <vek/values/memory.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace VEK
{
namespace
{

constexpr std::size_t kLevelAt = 18;
constexpr std::size_t kHiXAt = 19;
constexpr std::size_t kHiYAt = 21;
constexpr std::size_t kByteOrderAt = 29;
constexpr std::size_t kRecordsAt[] = {0, 34, 31}; // by level

constexpr unsigned kLittleEndian = 0x1234;
constexpr unsigned kBigEndian = 0x3412;
constexpr unsigned kMissingWord = 0xFCFC;

constexpr unsigned kOpFill = 0xFD00; // the whole word
constexpr unsigned kOpOffset = 0xFB;
constexpr unsigned kOpEndpoint = 0xFE;
constexpr unsigned kOpColor = 0xFF;

int signedByteOf(unsigned value)
{
    return static_cast<int>((value & 0xFF) ^ 0x80) - 0x80;
}

unsigned swapped(unsigned word)
{
    return (word & 0xFF) << 8 | word >> 8;
}

int toInt(double value)
{
    constexpr double kMax = std::numeric_limits<int>::max();
    return value >= kMax    ? std::numeric_limits<int>::max()
           : value <= -kMax ? -std::numeric_limits<int>::max()
                            : static_cast<int>(value);
}

} // namespace

/// Reads from a slide, in its byte order, and never past its end.
class SlideReader::Cursor
{
public:
    explicit Cursor(SlideBytes slide) : m_begin(slide.data()), m_at(m_begin), m_end(m_begin + slide.size()) {}

    void seek(std::size_t offset) { m_at = m_begin + std::min(offset, static_cast<std::size_t>(m_end - m_begin)); }
    void swapWords(bool swap) { m_swap = swap; }

    unsigned byte() { return m_at < m_end ? *m_at++ : 0; }
    int signedByte() { return signedByteOf(byte()); }

    unsigned word()
    {
        if (m_end - m_at < 2)
            return kMissingWord;
        const unsigned value = m_at[0] | static_cast<unsigned>(m_at[1]) << 8;
        m_at += 2;
        return m_swap ? swapped(value) : value;
    }
    int signedWord() { return static_cast<std::int16_t>(word()); }

private:
    const unsigned char* m_begin;
    const unsigned char* m_at;
    const unsigned char* m_end;
    bool m_swap = false;
};

bool SlideReader::read(SlideBytes slide, SlideVisitor& visitor)
{
    Cursor in(slide);
    in.seek(kLevelAt);
    const unsigned level = in.byte();
    if (level != 1 && level != 2)
        return false;
    if (level == 2) {
        in.seek(kByteOrderAt);
        m_byteOrder = in.word();
    }

    // If no byte order is known, the highest point is read high byte first, but the records low byte first. Libraries
    // in use contain slides that are right only under this rule.
    in.swapWords(m_byteOrder != kLittleEndian);
    in.seek(kHiXAt);
    const unsigned hiX = in.word();
    in.seek(kHiYAt);
    const unsigned hiY = in.word();

    in.swapWords(m_byteOrder == kBigEndian);
    in.seek(kRecordsAt[level]);
    const unsigned long shortages = memoryShortages();
    if (visitor.start(static_cast<int>(hiX), static_cast<int>(hiY)))
        readRecords(in, visitor);
    return memoryShortages() == shortages;
}

void SlideReader::readRecords(Cursor& in, SlideVisitor& visitor)
{
    SlidePoint last;
    for (;;) {
        const unsigned word = in.word();
        const unsigned op = word >> 8;
        const int dx = signedByteOf(word);
        if (op < 0x80) {
            const SlidePoint from{static_cast<int>(word), in.signedWord()};
            const int toX = in.signedWord();
            const int toY = in.signedWord();
            visitor.line(from, {toX, toY});
            last = from;
        } else if (op == kOpEndpoint) {
            const SlidePoint to{last.x + dx, last.y + in.signedByte()};
            visitor.line(last, to);
            last = {static_cast<std::int16_t>(to.x), static_cast<std::int16_t>(to.y)};
        } else if (op == kOpOffset) {
            const SlidePoint from{last.x + dx, last.y + in.signedByte()};
            const int toX = last.x + in.signedByte();
            const int toY = last.y + in.signedByte();
            visitor.line(from, {toX, toY});
            last = {static_cast<std::int16_t>(from.x), static_cast<std::int16_t>(from.y)};
        } else if (op == kOpColor) {
            visitor.color(static_cast<int>(word & 0xFF));
        } else if (word == kOpFill) {
            readFill(in, visitor);
        } else { // the end mark, or no record at all
            return;
        }
    }
}

void SlideReader::readFill(Cursor& in, SlideVisitor& visitor)
{
    const unsigned count = in.word();
    in.word();
    in.word();
    const int x = in.signedWord();
    int y = in.signedWord();
    const SlidePoint first{x, y};
    m_polygon.setLogicalLength(0);
    m_polygon.append(first);
    for (unsigned i = 1; i < count; ++i) {
        in.word();
        const int nextX = in.signedWord();
        y = in.signedWord();
        if (y < 0) // the terminator; past the end every word is one
            break;
        m_polygon.append({nextX, y});
    }
    if (y >= 0) {
        in.word();
        in.word();
        in.word();
    }
    m_polygon.append(first);
    visitor.fill({m_polygon.begin(), m_polygon.end()});
}

bool SlideMapping::set(int left, int top, int right, int bottom, int slideHiX, int slideHiY)
{
    if (slideHiX <= 0 || slideHiY <= 0)
        return false;
    const double width = static_cast<double>(right) - left - 1.0;
    const double height = static_cast<double>(bottom) - top - 1.0;
    scale = std::min(height / slideHiY, width / slideHiX);
    offsetX = toInt(width - slideHiX * scale) >> 1;
    offsetY = toInt(height - slideHiY * scale) >> 1;
    hiY = slideHiY;
    return true;
}

SlidePoint SlideMapping::map(SlidePoint point) const
{
    return {toInt(point.x * scale + offsetX), toInt((hiY - point.y) * scale + offsetY)};
}

} // namespace VEK

// The text of an SVG file, collected in a buffer and written in blocks.
#pragma once

#include <vek/surfaces/file.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace VEK::svg
{

/// A coordinate in thousandths, the precision of the file.
using Milli = std::int64_t;

inline Milli milli(double value)
{
    return static_cast<Milli>(value * 1000.0 + (value < 0.0 ? -0.5 : 0.5));
}

struct MilliPoint {
    Milli x = 0;
    Milli y = 0;

    bool operator==(const MilliPoint& other) const = default;
};

class Text
{
public:
    explicit Text(CByteSink& sink) : m_sink(sink) { m_buffer.reserve(kBlock + kSpare); }

    Text& operator<<(std::string_view text)
    {
        m_buffer.append(text);
        return *this;
    }
    Text& operator<<(int value) { return *this << std::to_string(value); }
    Text& operator<<(Milli value);

    /// A path command letter and its point.
    void addPoint(char letter, const MilliPoint& p);

    /// A `COLORREF` as "#rrggbb".
    void addColor(unsigned color);

    /// Bytes in base64, written in blocks.
    void addBase64(std::string_view bytes);

    /// Writes full blocks; to be called now and then, since appending never writes.
    void settle()
    {
        if (m_buffer.size() >= kBlock)
            flush();
    }

    /// Writes the rest and commits.
    /// @return whether everything succeeded
    bool finish()
    {
        flush();
        return m_good && m_sink.commit();
    }

private:
    void flush();

    static constexpr std::size_t kBlock = std::size_t{1} << 16;
    static constexpr std::size_t kSpare = 4096;

    CByteSink& m_sink;
    std::string m_buffer;
    bool m_good = true;
};

} // namespace VEK::svg

/// @file
/// A number that tells whether two pictures, or parts of them, are the same.
#pragma once

#include <vek/display.h>

#include <cstdint>
#include <cstring>

namespace display_test
{

/// FNV-1a over values, not over memory, which differs in padding and in the size of wchar_t.
class Hash
{
public:
    Hash& operator<<(std::uint64_t value)
    {
        for (int shift = 0; shift < 64; shift += 8) {
            m_hash ^= value >> shift & 0xFF;
            m_hash *= 0x100000001B3u;
        }
        return *this;
    }
    Hash& operator<<(double value)
    {
        std::uint64_t bits = 0;
        value += 0.0; // one zero
        std::memcpy(&bits, &value, sizeof bits);
        return *this << bits;
    }
    Hash& operator<<(const CVekPoint3d& p) { return *this << p[0] << p[1] << p[2]; }
    Hash& operator<<(const CVekString& text)
    {
        for (int i = 0; i < text.len(); ++i)
            *this << static_cast<std::uint64_t>(text[i]);
        return *this << std::uint64_t{0};
    }
    Hash& operator<<(const CVekColor& color)
    {
        return *this << static_cast<std::uint64_t>(color.colorIndex() + 1)
                     << static_cast<std::uint64_t>(color.oleColor());
    }
    Hash& operator<<(const CVekVertex& vertex) { return *this << vertex.start << vertex.end << vertex.bulge; }
    Hash& operator<<(const CVekVertexArray& vl)
    {
        for (const CVekVertex& vertex : vl)
            *this << vertex;
        return *this << vl.normal().asPoint();
    }
    template <class T>
    Hash& operator<<(const CVekArrayTempl<T>& list)
    {
        *this << static_cast<std::uint64_t>(list.len());
        for (const T& element : list)
            *this << element;
        return *this;
    }
    Hash& operator<<(int value) { return *this << static_cast<std::uint64_t>(static_cast<std::int64_t>(value)); }
    Hash& operator<<(const CVekMatrix3d& m)
    {
        for (int i = 0; i < 3; ++i)
            *this << m.axis(i).asPoint();
        return *this << m.translation().asPoint();
    }
    Hash& operator<<(const CVekDisplayItem& item)
    {
        *this << static_cast<int>(item.type) << std::uint64_t{item.flag} << item.stack << item.color << item.linetype;
        *this << item.ltscale << item.point << std::uint64_t{item.pdMode} << item.pdSize << item.vl << item.reg;
        *this << item.mtx << item.fcolor << item.thickn << item.hatch.name << item.hatch.angle << item.txtAlign;
        return *this << item.txt << item.regl;
    }
    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xCBF29CE484222325u;
};

/// Of the items of an object.
inline std::uint64_t hashOf(const CVekGDX& gdx)
{
    const CVekArrayTempl<CVekDisplayItem>& list = gdx.getDisplayList();
    return (Hash() << list).value();
}

} // namespace display_test

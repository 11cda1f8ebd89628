/// @file
/// Colours.
#pragma once

#include <vek/values/string.h>

/// A colour: an index of the AutoCAD Color Index scheme, an RGB value, or both, and two names.
///
/// Index -1 means no colour of its own and is drawn as the inverse of the background. As a fill colour, index 0 means
/// the pen colour. A default-constructed colour has index -1 and RGB 0.
class VEK_API CVekColor : public CVekObj
{
public:
    using MovesAsBytes = CVekColor; ///< see `kVekMovesAsBytes`

    CVekColor() = default;
    CVekColor(const CVekColor& other)
        : CVekObj(), m_names(other.m_names ? named(other.colorName(), other.bookName()) : nullptr),
          m_color(other.m_color), m_index(other.m_index)
    {
    }
    CVekColor(CVekColor&& other) noexcept
        : CVekObj(), m_names(std::exchange(other.m_names, nullptr)), m_color(other.m_color), m_index(other.m_index)
    {
    }
    ~CVekColor() override
    {
        if (m_names)
            release();
    }
    CVekColor& operator=(const CVekColor& other)
    {
        m_color = other.m_color;
        m_index = other.m_index;
        if (m_names || other.m_names)
            setNames(other.colorName(), other.bookName());
        return *this;
    }
    CVekColor& operator=(CVekColor&& other) noexcept
    {
        m_color = other.m_color;
        m_index = other.m_index;
        std::swap(m_names, other.m_names);
        return *this;
    }

    short colorIndex() const { return m_index; }

    /// Sets the index and drops an RGB value held before.
    void setColorIndex(short index);

    /// The RGB value as 0xRRGGBB: the one set, or that of the index.
    unsigned long color() const { return m_color; }

    /// Sets the RGB value from 0xRRGGBB. A colour of index -1 takes the index of the nearest palette entry, so that a
    /// colour given by value is the item's own; any other index is kept.
    void setColor(unsigned long rgb);

    /// The colour as a Windows `COLORREF`, 0x00BBGGRR. It is always usable, also for a colour set by index alone; the
    /// setter called last determines it.
    unsigned long oleColor() const { return swapped(m_color); }

    /// Sets the RGB value from a `COLORREF`; the index as with `setColor`.
    void setOleColor(unsigned long colorRef);

    /// The two names, valid until the colour changes. Both stay as they were when memory runs out in setting them.
    const CVekString& colorName() const;
    const CVekString& bookName() const;
    void setNames(const wchar_t* colorName, const wchar_t* bookName);

    int red() const { return static_cast<int>(m_color >> 16); }
    int green() const { return static_cast<int>(m_color >> 8 & 0xFF); }
    int blue() const { return static_cast<int>(m_color & 0xFF); }

    /// Compares all five fields.
    bool operator==(const CVekColor& other) const;

private:
    struct Names;

    /// Between 0xRRGGBB and 0x00BBGGRR, either way.
    static constexpr unsigned long swapped(unsigned long rgb)
    {
        return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF);
    }

    static Names* named(const wchar_t* colorName, const wchar_t* bookName);
    void release() noexcept;

    Names* m_names = nullptr; ///< hardly any colour has names; null while both are empty
    unsigned m_color = 0;     ///< 24 bits
    short m_index = -1;
};

namespace VEK
{

/// The RGB value 0xRRGGBB of an entry of the published AutoCAD Color Index palette; 0 outside 1 to 255. Entries 1 to 9
/// are red, yellow, green, cyan, blue, magenta, white and two greys; 10 to 249 a wheel of 24 hues with five levels of
/// brightness (255, 165, 127, 76, 38), each fully and half saturated; 250 to 255 greys from 84 to white.
VEK_API unsigned long paletteColor(int index);

/// The palette entry from 1 to 255 whose RGB value is nearest to 0xRRGGBB, by the sum of the squares of the three
/// differences; the lowest on a tie.
VEK_API short paletteNearest(unsigned long rgb);

} // namespace VEK

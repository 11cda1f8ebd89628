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
    unsigned long oleColor() const { return m_oleColor; }

    /// Sets the RGB value from a `COLORREF`; the index as with `setColor`.
    void setOleColor(unsigned long colorRef);

    const CVekString& colorName() const { return m_colorName; }
    const CVekString& bookName() const { return m_bookName; }
    void setNames(const wchar_t* colorName, const wchar_t* bookName);

    int red() const { return static_cast<int>(m_oleColor & 0xFF); }
    int green() const { return static_cast<int>(m_oleColor >> 8 & 0xFF); }
    int blue() const { return static_cast<int>(m_oleColor >> 16 & 0xFF); }

    /// Compares all five fields.
    bool operator==(const CVekColor& other) const;

private:
    short m_index = -1;
    unsigned m_color = 0;
    unsigned m_oleColor = 0;
    CVekString m_colorName;
    CVekString m_bookName;
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

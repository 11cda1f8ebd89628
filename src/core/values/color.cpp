#include <vek/values/color.h>

#include <array>
#include <cstdint>

namespace
{

constexpr unsigned rgbOf(unsigned red, unsigned green, unsigned blue)
{
    return red << 16 | green << 8 | blue;
}

/// Between 0xRRGGBB and 0x00BBGGRR, either way.
constexpr unsigned swapped(unsigned long rgb)
{
    return static_cast<unsigned>((rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF));
}

/// Entry 10 to 249: 24 hues, 15 degrees apart, from red by way of yellow, green, cyan, blue and magenta. The last digit
/// is the brightness, two indices each, of which the odd one is half as saturated.
constexpr unsigned wheelColor(int index)
{
    constexpr unsigned kPercent[] = {100, 65, 50, 30, 15};
    const unsigned brightness = kPercent[index % 10 / 2];
    const unsigned steps = static_cast<unsigned>(index / 10 - 1);
    // Strengths of the strongest, weakest and middle component, in eighths.
    const unsigned low = index % 2 ? 4 : 0;
    const unsigned quarter = steps % 4;
    const unsigned rising = low + (8 - low) * quarter / 4;
    const unsigned falling = 8 - (8 - low) * quarter / 4;
    const auto level = [&](unsigned eighths) { return 255 * brightness * eighths / 800; };
    const unsigned high = level(8);
    switch (steps / 4) {
    case 0: return rgbOf(high, level(rising), level(low));
    case 1: return rgbOf(level(falling), high, level(low));
    case 2: return rgbOf(level(low), high, level(rising));
    case 3: return rgbOf(level(low), level(falling), high);
    case 4: return rgbOf(level(rising), level(low), high);
    default: return rgbOf(high, level(low), level(falling));
    }
}

constexpr std::array<unsigned, 256> makePalette()
{
    std::array<unsigned, 256> palette{0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                      0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
    for (int index = 10; index < 250; ++index)
        palette[static_cast<std::size_t>(index)] = wheelColor(index);
    constexpr unsigned kGreys[] = {84, 118, 152, 186, 220, 255};
    for (std::size_t i = 0; i < 6; ++i)
        palette[250 + i] = rgbOf(kGreys[i], kGreys[i], kGreys[i]);
    return palette;
}

constexpr std::array<unsigned, 256> kPalette = makePalette();

int squaredDistance(unsigned a, unsigned b)
{
    const auto part = [&](int shift) {
        const int difference = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        return difference * difference;
    };
    return part(16) + part(8) + part(0);
}

} // namespace

void CVekColor::setColorIndex(short index)
{
    m_index = index;
    m_color = static_cast<unsigned>(VEK::paletteColor(index));
    m_oleColor = swapped(m_color);
}

void CVekColor::setColor(unsigned long rgb)
{
    m_color = static_cast<unsigned>(rgb & 0xFFFFFF);
    m_oleColor = swapped(m_color);
    if (m_index == -1)
        m_index = VEK::paletteNearest(m_color);
}

void CVekColor::setOleColor(unsigned long colorRef)
{
    setColor(swapped(colorRef));
}

void CVekColor::setNames(const wchar_t* colorName, const wchar_t* bookName)
{
    const CVekString book(bookName); // either may point to a name of this colour
    m_colorName = colorName;
    m_bookName = book;
}

bool CVekColor::operator==(const CVekColor& other) const
{
    return m_index == other.m_index && m_color == other.m_color && m_oleColor == other.m_oleColor &&
           m_colorName == other.m_colorName && m_bookName == other.m_bookName;
}

unsigned long VEK::paletteColor(int index)
{
    return index >= 1 && index <= 255 ? kPalette[static_cast<std::size_t>(index)] : 0;
}

short VEK::paletteNearest(unsigned long rgb)
{
    const auto sought = static_cast<unsigned>(rgb & 0xFFFFFF);
    short nearest = 1;
    int least = squaredDistance(sought, kPalette[1]);
    for (short index = 2; index <= 255 && least > 0; ++index) {
        const int distance = squaredDistance(sought, kPalette[static_cast<std::size_t>(index)]);
        if (distance < least) {
            least = distance;
            nearest = index;
        }
    }
    return nearest;
}

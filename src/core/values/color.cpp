#include <vek/values/color.h>

#include <array>
#include <cstdint>

namespace
{

constexpr unsigned rgbOf(unsigned red, unsigned green, unsigned blue)
{
    return red << 16 | green << 8 | blue;
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

constinit const CVekString kNone;

} // namespace

/// The names of a colour that has any.
struct CVekColor::Names : CVekObj {
    CVekString color;
    CVekString book;

    Names(const wchar_t* colorName, const wchar_t* bookName) : color(colorName), book(bookName) {}
};

/// @return null when memory runs out
CVekColor::Names* CVekColor::named(const wchar_t* colorName, const wchar_t* bookName)
{
    const unsigned long shortages = VEK::memoryShortages();
    Names* names = new Names(colorName, bookName);
    if (VEK::memoryShortages() == shortages)
        return names;
    delete names;
    return nullptr;
}

void CVekColor::release() noexcept
{
    delete m_names;
}

const CVekString& CVekColor::colorName() const
{
    return m_names ? m_names->color : kNone;
}

const CVekString& CVekColor::bookName() const
{
    return m_names ? m_names->book : kNone;
}

void CVekColor::setNames(const wchar_t* colorName, const wchar_t* bookName)
{
    Names* names = nullptr;
    if ((colorName && *colorName) || (bookName && *bookName)) {
        names = named(colorName, bookName);
        if (!names)
            return;
    }
    delete std::exchange(m_names, names); // only now: the texts may be its own
}

void CVekColor::setColorIndex(short index)
{
    m_index = index;
    m_color = static_cast<unsigned>(VEK::paletteColor(index));
}

void CVekColor::setColor(unsigned long rgb)
{
    m_color = static_cast<unsigned>(rgb & 0xFFFFFF);
    if (m_index == -1)
        m_index = VEK::paletteNearest(m_color);
}

void CVekColor::setOleColor(unsigned long colorRef)
{
    setColor(swapped(colorRef));
}

bool CVekColor::operator==(const CVekColor& other) const
{
    return m_index == other.m_index && m_color == other.m_color && colorName() == other.colorName() &&
           bookName() == other.bookName();
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

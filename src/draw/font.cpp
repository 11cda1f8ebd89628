/// @file
/// The font's lookup table.
#include "core/values/whole.h"

#include <draw/font.h>

#include <vek/draw/font.h>
#include <vek/values/map.h>

namespace
{

using VEK::font::Mark;
using VEK::font::Row;

using Region = CVekArrayTempl<CVekVertexArray>;
using Glyph = CVekArrayTempl<Region>;
using GlyphMap = CVekMapTempl<wchar_t, Glyph>;

CVekVertexArray contourOf(std::span<const Row> corners)
{
    CVekVertexArray contour;
    contour.reserve(static_cast<int>(corners.size()));
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Row& from = corners[i];
        const Row& to = corners[(i + 1) % corners.size()];
        contour.append(CVekVertex(CVekPoint3d(from.x, from.y, 0.0), CVekPoint3d(to.x, to.y, 0.0)));
    }
    return contour;
}

void addGlyphs(GlyphMap& glyphs, std::span<const Row> rows)
{
    Glyph* current = nullptr;
    for (std::size_t i = 0; i < rows.size();) {
        const Row& mark = rows[i++];
        if (mark.mark == Mark::glyph) {
            current = &glyphs[mark.code];
            *current = Glyph();
            continue;
        }
        const std::size_t first = i;
        while (i < rows.size() && rows[i].mark == Mark::point)
            ++i;
        if (mark.mark == Mark::outer)
            current->append(Region());
        (*current)[-1].append(contourOf(rows.subspan(first, i - first)));
    }
}

/// Built at the first lookup for which there is enough memory, and never changed afterwards.
const GlyphMap& glyphTable()
{
    static const GlyphMap table = [] {
        const unsigned long shortages = VEK::memoryShortages();
        GlyphMap glyphs;
        for (std::span<const Row> rows :
             {VEK::font::kSigns, VEK::font::kCapitals, VEK::font::kSmallLetters, VEK::font::kFurtherCharacters})
            addGlyphs(glyphs, rows);
        if (VEK::memoryShortages() != shortages)
            throw std::bad_alloc(); // so that the next lookup builds it
        return glyphs;
    }();
    return table;
}

} // namespace

CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> get_ascii_from_map(wchar_t c)
{
    return VEK::whole(Glyph(), [&] {
        const Glyph* glyph = glyphTable().get(c);
        return glyph ? *glyph : Glyph();
    });
}

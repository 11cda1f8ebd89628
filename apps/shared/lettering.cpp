#include "lettering.h"

#include <algorithm>
#include <string>

namespace
{

constexpr double kBlank = 0.8;   // in em; the font itself gives a blank no width
constexpr double kSpacing = 0.5; // between two glyphs

} // namespace

CVekGDX paper()
{
    CVekColor white;
    white.setColor(0xFFFFFF);
    return CVekGDX(white, CVekMatrix3d::kIdentity, 0.0, 0, CVekPoint3d::kOrigin, CVekPoint3d::kOrigin);
}

void addText(CVekGDX& gdx, const CVekString& wanted, const CVekMatrix3d& place, const TextLook& look)
{
    std::wstring letters(static_cast<const wchar_t*>(wanted));
    std::replace(letters.begin(), letters.end(), L'_', L'['); // the font's low bar
    const CVekString text(letters.c_str());
    CVekGDX words = paper(); // one after the other, from the origin
    double x = 0.0;
    for (int from = 0; from < text.len();) {
        int to = text.find(L' ', from);
        to = to < 0 ? text.len() : to;
        if (to > from) {
            CVekMatrix3d shift;
            shift.setToTranslation(CVekVector3d(x, 0.0, 0.0));
            const CVekString word = text.mid(static_cast<unsigned>(from), static_cast<unsigned>(to - from));
            words.imageTxt({}, 0, word, look.color, shift, L"", CVekPoint3d::kOrigin, CVekPoint3d::kOrigin);
            CVekPoint3d min, max;
            if (words.extmaxGet(min, max))
                x = max[0] + kSpacing;
        }
        x += kBlank;
        from = to + 1;
    }
    CVekPoint3d min, max;
    words.extmaxGet(min, max);
    CVekMatrix3d shift;
    shift.setToTranslation(CVekVector3d(look.middle ? (min[0] + max[0]) / -2.0 : 0.0, 0.0, 0.0));
    for (int i = 0; i < words.lenGet(); ++i) {
        gdx.imageTxt(look.stack, look.flag, words.txtGet(i), look.color, place * shift * words.mtxGet(i), L"",
                     CVekPoint3d::kOrigin, look.reference);
    }
}

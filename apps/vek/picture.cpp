#include "picture.h"

#include "failure.h"
#include "input.h"

#include <vek/surfaces.h>

namespace
{

constexpr double kBlank = 0.8;   // in em; the font itself gives a blank no room
constexpr double kSpacing = 0.5; // between two glyphs

bool isMetafile(const std::string& path)
{
    return ending(path) == ".emf";
}

} // namespace

CVekGDX paper()
{
    CVekColor white;
    white.setColor(0xFFFFFF);
    return CVekGDX(white, CVekMatrix3d::kIdentity, 0.0, 0, CVekPoint3d::kOrigin, CVekPoint3d::kOrigin);
}

void addText(CVekGDX& gdx, const CVekString& text, const CVekPoint3d& at, double height, bool middle)
{
    // The words in em, one after the other, and then the whole of them in its place.
    CVekGDX words = paper();
    CVekColor black;
    black.setColorIndex(7);
    double x = 0.0;
    for (int from = 0; from < text.len();) {
        int to = text.find(L' ', from);
        to = to < 0 ? text.len() : to;
        if (to > from) {
            CVekMatrix3d place;
            place.setToTranslation(CVekVector3d(x, 0.0, 0.0));
            const CVekString word = text.mid(static_cast<unsigned>(from), static_cast<unsigned>(to - from));
            words.imageTxt({}, 0, word, black, place, L"", CVekPoint3d::kOrigin, CVekPoint3d::kOrigin);
            CVekPoint3d min, max;
            if (words.extmaxGet(min, max))
                x = max[0] + kSpacing;
        }
        x += kBlank;
        from = to + 1;
    }
    CVekPoint3d min, max;
    words.extmaxGet(min, max);
    CVekMatrix3d place;
    place.setCoordSystem(at, CVekVector3d(height, 0.0, 0.0), CVekVector3d(0.0, height, 0.0),
                         CVekVector3d(0.0, 0.0, height));
    CVekMatrix3d shift;
    shift.setToTranslation(CVekVector3d(middle ? (min[0] + max[0]) / -2.0 : 0.0, 0.0, 0.0));
    for (int i = 0; i < words.lenGet(); ++i) {
        gdx.imageTxt({}, 0, words.txtGet(i), black, place * shift * words.mtxGet(i), L"", CVekPoint3d::kOrigin,
                     CVekPoint3d::kOrigin);
    }
}

void checkPictureName(const std::string& path)
{
    const std::string kind = ending(path);
    if (kind != ".svg" && kind != ".emf")
        throw Failure(path + ": neither an SVG file (.svg) nor an enhanced metafile (.emf)");
}

void writePicture(CVekGDX& gdx, const std::string& path, Size size)
{
    VEK::CFileSink sink(wide(path));
    const auto surface = isMetafile(path) ? VEK::emfSurface(sink) : VEK::svgSurface(sink, size.width, size.height);
    if (!isMetafile(path)) // a metafile lies on its document's paper; a viewer of SVG may have a dark page
        surface->solidRect(0.0, 0.0, size.width, size.height, 0xFFFFFF);
    VEK::gdxDraw(gdx, *surface, size.height, size.width, VEK::scalableRules);
    if (!surface->finish())
        throw Failure(path + ": cannot be written");
}

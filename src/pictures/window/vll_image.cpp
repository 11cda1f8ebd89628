#include <vek/pictures/window/vll_image.h>

#include <vek/data/app.h>

namespace
{

constexpr int kLineMode = 6; ///< colour mode of the polylines, whose entry of the colour table is the contrast colour

CVekArrayTempl<int> pathOf(int number)
{
    CVekArrayTempl<int> path;
    path.append(number);
    return path;
}

CVekColor colorOf(unsigned color)
{
    CVekColor result;
    result.setOleColor(color);
    return result;
}

} // namespace

IMPLEMENT_DYNAMIC(CVekVllImage, CVekDplistImage)

BEGIN_MESSAGE_MAP(CVekVllImage, CVekDplistImage)
ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

CVekVllImage::CVekVllImage()
{
    set_dpList(&gdx);
    SetBkColor(vekAppPtr()->backgroundColor());
}

void CVekVllImage::SetBkColor(unsigned long color)
{
    bkColor = static_cast<unsigned>(color);
    const unsigned mean = ((color & 0xFF) + (color >> 8 & 0xFF) + (color >> 16 & 0xFF)) / 3;
    vlColor = mean < 128 ? 0xFFFFFF : 0;
    gdx.backColorSet(colorOf(bkColor));
    gdx.ColorTabSet(kLineMode, colorOf(vlColor));
}

bool CVekVllImage::setVll(const CVekArrayTempl<CVekVertexArray>& list)
{
    const CVekColor color = colorOf(vlColor);
    const CVekMatrix3d none;
    CVekArrayTempl<double> continuous;
    continuous.append(1.0);
    gdx.clear();
    const unsigned base = VEK::colorBase << itemColorModeShift;
    gdx.imagePt(pathOf(0), drawBase ? base : base | itemHidden | itemNoExt, CVekPoint3d::kOrigin, color, none, pdSize,
                pdMode, CVekPoint3d::kOrigin);
    for (int i = 0; i < list.len(); ++i) {
        gdx.imageVl(pathOf(i + 1), kLineMode << itemColorModeShift, list[i], color, none, continuous, 1.0, 0,
                    CVekPoint3d::kOrigin);
    }
    zoomExtents();
    repaint();
    return true;
}

int CVekVllImage::SetCurVl(int i)
{
    const int before = curVl;
    curVl = i;
    if (before >= 0)
        gdx.cModeSet(pathOf(before + 1), kLineMode);
    if (i >= 0)
        gdx.cModeSet(pathOf(i + 1), VEK::colorHighlight);
    repaint();
    return before;
}

bool CVekVllImage::setDrawBase(bool flag)
{
    const bool before = drawBase;
    drawBase = flag;
    gdx.propSet(pathOf(0), drawBase ? propShow : propHide);
    gdx.propSet(pathOf(0), drawBase ? propExt : propNoExt);
    zoomExtents();
    repaint();
    return before;
}

void CVekVllImage::OnLButtonDblClk(UINT flags, CPoint point)
{
    CVekDplistImage::OnLButtonDblClk(flags, point);
    zoomExtents();
    Invalidate(TRUE);
}

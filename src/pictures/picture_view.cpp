#include <vek/pictures/picture_view.h>

#include <algorithm>
#include <cmath>

namespace VEK
{
namespace
{

constexpr double kStep = 1.5;
constexpr double kMostZoom = 20.0;
constexpr double kLeastZoom = 0.5;
constexpr double kFarthest = 1e9; // pixels; fits into an int with room for a pan
constexpr int kHimetricPerInch = 2540;

} // namespace

double PictureView::reduction(int clientWidth, int clientHeight) const
{
    if (clientWidth <= 0 || clientHeight <= 0)
        return 1.0;
    return std::max({static_cast<double>(width) / clientWidth, static_cast<double>(height) / clientHeight, 1.0});
}

void PictureView::fit(int clientWidth, int clientHeight)
{
    const double f = reduction(clientWidth, clientHeight);
    originX = static_cast<int>((clientWidth - width / f) * 0.5);
    originY = static_cast<int>((clientHeight - height / f) * 0.5);
    restX = restY = 0.0;
    zoom = 1.0;
}

bool PictureView::wheel(int delta, int x, int y)
{
    const bool closer = delta > 0;
    if (closer ? zoom > kMostZoom : zoom < kLeastZoom)
        return false;
    const auto move = [closer](int& origin, double& rest, int mouse) {
        const double away = origin + rest - mouse;
        const double at = (closer ? away * kStep : away / kStep) + mouse;
        origin = static_cast<int>(std::lround(std::clamp(at, -kFarthest, kFarthest)));
        rest = at - origin;
    };
    zoom = closer ? zoom * kStep : zoom / kStep;
    move(originX, restX, x);
    move(originY, restY, y);
    return true;
}

int pixelsOfHimetric(int himetric, int pixelsPerInch)
{
    const long long scaled = static_cast<long long>(himetric) * pixelsPerInch + kHimetricPerInch / 2;
    return static_cast<int>(std::clamp(scaled / kHimetricPerInch, -0x7FFFFFFFLL, 0x7FFFFFFFLL));
}

} // namespace VEK

#include "core/geometry/area.h"
#include "core/geometry/nesting.h"
#include "core/values/whole.h"

#include <vek/geometry/region.h>

#include <cmath>

namespace VEK
{
namespace
{

using Regions = CVekArrayTempl<CVekArrayTempl<CVekVertexArray>>;

constexpr unsigned long kNest = 4;

bool boundsArea(const CVekVertexArray& contour)
{
    const double area = detail::signedArea(contour, CVekVector3d::kZAxis);
    return std::isfinite(area) && area != 0.0;
}

/// How many contours contain each one.
std::vector<int> depthsOf(const std::vector<int>& parents)
{
    constexpr int kOpen = -1, kOnPath = -2;
    std::vector<int> depths(parents.size(), kOpen);
    std::vector<std::size_t> path;
    for (std::size_t i = 0; i < parents.size(); ++i) {
        std::size_t walk = i;
        while (depths[walk] == kOpen) {
            depths[walk] = kOnPath;
            path.push_back(walk);
            if (parents[walk] < 0)
                break;
            walk = static_cast<std::size_t>(parents[walk]);
        }
        int depth = depths[walk] >= 0 ? depths[walk] : -1; // contours that cross may refer to each other
        for (; !path.empty(); path.pop_back())
            depths[path.back()] = ++depth;
    }
    return depths;
}

Regions sorted(const CVekArrayTempl<CVekVertexArray>& vll, unsigned long mode)
{
    Regions regions;
    CVekArrayTempl<CVekVertexArray> contours;
    contours.reserve(vll.len());
    for (const CVekVertexArray& contour : vll) {
        if (boundsArea(contour))
            contours.append(contour);
    }
    if ((mode & kNest) == 0) {
        for (CVekVertexArray& contour : contours)
            regions[regions.len()].append(std::move(contour));
        return regions;
    }
    const std::vector<int> parents = detail::parentsOf(contours);
    const std::vector<int> depths = depthsOf(parents);
    std::vector<int> regionOf(depths.size());
    for (std::size_t i = 0; i < depths.size(); ++i) {
        if (depths[i] % 2 == 0) {
            regionOf[i] = regions.len();
            regions[regions.len()].append(std::move(contours[static_cast<int>(i)]));
        }
    }
    for (std::size_t i = 0; i < depths.size(); ++i) {
        if (depths[i] % 2 != 0)
            regions[regionOf[static_cast<std::size_t>(parents[i])]].append(std::move(contours[static_cast<int>(i)]));
    }
    return regions;
}

} // namespace

CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> g_vll_regions(const CVekArrayTempl<CVekVertexArray>& vll,
                                                              unsigned long mode)
{
    return whole(Regions(), [&] { return sorted(vll, mode); });
}

} // namespace VEK

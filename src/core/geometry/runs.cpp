#include "core/values/stepping.h"
#include "core/values/whole.h"

#include <vek/geometry/polyline.h>

namespace VEK
{
namespace
{

CVekArrayTempl<CVekVertexArray> runsOf(CVekVertexArray&& vl)
{
    CVekArrayTempl<CVekVertexArray> runs;
    const int count = vl.len();
    int first = 0;
    for (int i = 1; i <= count; ++i) {
        if (i < count && plane::meets(vl[i - 1].end, vl[i].start))
            continue;
        CVekVertexArray& run = runs[runs.len()];
        if (i - first == count) {
            run = std::move(vl);
            break;
        }
        run.setNormal(vl.normal());
        run.reserve(i - first);
        for (; first < i; ++first)
            run.append(vl[first]);
    }
    return runs;
}

} // namespace

CVekArrayTempl<CVekVertexArray> vl_to_vll(CVekVertexArray vl)
{
    return whole(CVekArrayTempl<CVekVertexArray>(), [&] { return runsOf(std::move(vl)); });
}

} // namespace VEK

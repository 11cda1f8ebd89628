#include "core/values/whole.h"

#include <vek/data.h>
#include <vek/draw/text.h>

bool vek_text_to_regl(const CVekDataItem* item, CVekArrayTempl<CVekArrayTempl<CVekVertexArray>>& regl, double factor)
{
    constexpr int kStatusNormal = 5100;
    constexpr int kListBegin = 5016;
    constexpr int kNil = 5019;
    regl = {};
    if (!item)
        return false;
    regl = VEK::whole(CVekArrayTempl<CVekArrayTempl<CVekVertexArray>>(), [&] {
        CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> regions;
        VEK::CUniqResbuf arguments(VEK::rbToList(item->mkLisp()));
        arguments.append(VEK::mkResbuf(factor, 5001));
        VEK::CUniqResbuf result;
        const int status = vekAppPtr()->callFunction(L"vek_text_to_regl", arguments, result);
        resbuf* next = result;
        if (status == kStatusNormal && next && (next->restype == kListBegin || next->restype == kNil))
            VEK::fromRb(regions, next, 0);
        return regions;
    });
    return regl.len() > 0;
}

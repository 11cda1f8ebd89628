/// Values of every type that a leaf of a data tree holds.
#pragma once

#include "shapes.h"

#include <vek/data.h>

#include <cstring>

namespace data_leaves
{

/// Hands a random value of each type to a function, with the name of the type; lists have one element or more.
template <class Take>
void forEach(shapes::Random& random, Take&& take)
{
    const auto number = [&] { return random.whole(2000000000) * (random.coin() ? 1 : -1); };
    const auto real = [&] { return random.pick({0.1, -0.0, 1e300, 1e22, 5e-324, random.uniform(-9, 9)}); };
    const auto text = [&] { return CVekString(random.coin() ? L"Größe \"1\"\\2\n\t\x1F\x20AC" : L"Riegel"); };
    const auto point = [&] { return CVekPoint3d(real(), real(), real()); };
    const auto polyline = [&] {
        CVekVertexArray vl = random.walk(1 + random.whole(4), 9.0).transformBy(random.motion());
        const unsigned char tag[8] = {1, 0, 3, 0x7F, 0xFF, 0, 0, 8};
        std::memcpy(vl[-1].tag, tag, sizeof tag);
        return vl;
    };
    VEK::VertexArrays polylines{polyline(), {}};
    for (int i = random.whole(60); i > 0; --i)
        polylines.append(polyline());
    CVekColor color;
    color.setColorIndex(static_cast<short>(random.pick({-1, 0, 5, 300})));
    if (random.coin()) {
        color.setColor(0x123456);
        color.setNames(L"Nacht", L"RAL");
    }
    take(L"bool", random.coin());
    take(L"int", random.coin() ? number() : -2147483647 - 1);
    take(L"ulong", random.coin() ? 4000000000ul : ~0ul);
    take(L"double", real());
    take(L"text", text());
    take(L"unit", random.coin() ? Vek::unitMetre : Vek::unitInch);
    take(L"point", point());
    take(L"points", CVekPoint3dArray{point(), point()});
    take(L"matrix", random.motion());
    take(L"hatch", VEK::CHatchProp(text(), real(), real(), random.coin()));
    take(L"color", color);
    take(L"polyline", polyline());
    take(L"polylines", polylines);
    take(L"regions", VEK::Regions{polylines, {polyline()}});
    take(L"ints", CVekArrayTempl<int>{number(), number()});
    take(L"texts", CVekArrayTempl<CVekString>{text(), CVekString()});
}

} // namespace data_leaves

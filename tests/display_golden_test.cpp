// One display object whose every bit agrees in all builds: natively and under Windows, debug and optimised.
#include "display_fixture.h"

#include <cstdint>
#include <cstring>

namespace
{

using namespace display_test;

/// FNV-1a over values, not over memory, which differs in padding and in the size of wchar_t.
class Hash
{
public:
    Hash& operator<<(std::uint64_t value)
    {
        for (int shift = 0; shift < 64; shift += 8) {
            m_hash ^= value >> shift & 0xFF;
            m_hash *= 0x100000001B3u;
        }
        return *this;
    }
    Hash& operator<<(double value)
    {
        std::uint64_t bits = 0;
        value += 0.0; // one zero
        std::memcpy(&bits, &value, sizeof bits);
        return *this << bits;
    }
    Hash& operator<<(const CVekPoint3d& p) { return *this << p[0] << p[1] << p[2]; }
    Hash& operator<<(const CVekString& text)
    {
        for (int i = 0; i < text.len(); ++i)
            *this << static_cast<std::uint64_t>(text[i]);
        return *this << std::uint64_t{0};
    }
    Hash& operator<<(const CVekColor& color)
    {
        return *this << static_cast<std::uint64_t>(color.colorIndex() + 1)
                     << static_cast<std::uint64_t>(color.oleColor());
    }
    Hash& operator<<(const CVekVertexArray& vl)
    {
        for (const CVekVertex& vertex : vl)
            *this << vertex.start << vertex.end << vertex.bulge;
        return *this << vl.normal().asPoint();
    }
    template <class T>
    Hash& operator<<(const CVekArrayTempl<T>& list)
    {
        *this << static_cast<std::uint64_t>(list.len());
        for (const T& element : list)
            *this << element;
        return *this;
    }
    Hash& operator<<(int value) { return *this << static_cast<std::uint64_t>(static_cast<std::int64_t>(value)); }
    Hash& operator<<(const CVekMatrix3d& m)
    {
        for (int i = 0; i < 3; ++i)
            *this << m.axis(i).asPoint();
        return *this << m.translation().asPoint();
    }
    Hash& operator<<(const CVekDisplayItem& item)
    {
        *this << static_cast<int>(item.type) << std::uint64_t{item.flag} << item.stack << item.color << item.linetype;
        *this << item.ltscale << item.point << std::uint64_t{item.pdMode} << item.pdSize << item.vl << item.reg;
        *this << item.mtx << item.fcolor << item.thickn << item.hatch.name << item.hatch.angle << item.txtAlign;
        return *this << item.txt << item.regl;
    }
    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xCBF29CE484222325u;
};

/// Every kind of item, under matrices whose entries are fractions: no angle functions, which C libraries round
/// differently.
Gdx reference()
{
    Gdx gdx = plain();
    CVekMatrix3d turned; // by the angle of the 3-4-5 triangle
    turned.setCoordSystem({1, 2, 3}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1});
    gdx.projMtxSet(turned);
    gdx.viewDirectionMtxSet(turned * turned);
    CVekColor red;
    red.setColorIndex(1);
    CVekColor grey;
    grey.setColor(0x7F8081);
    for (int i = 0; i < 50; ++i) {
        const CVekVertexArray vl = line(i / 7.0, i / 3.0, 100.0 / (i + 1), -i / 9.0);
        gdx.imageVl(path({i % 4, i}), (i % 5u) << itemColorModeShift, vl, red, turned, doubles({1, 1, 0}), 0.1 * i, 2,
                    {});
        gdx.imagePt(path({i % 3}), itemScreenFixed, {i / 11.0, 0, 0}, grey, {}, -10.0, 35, {1.0 / (i + 3), 0, 0});
    }
    CVekArrayTempl<CVekVertexArray> disc;
    disc[0].append(CVekVertex({-1.1, 0, 0}, {1.1, 0, 0}, 1.0));
    disc[0].append(CVekVertex({1.1, 0, 0}, {-1.1, 0, 0}, 1.0));
    gdx.imageReg(path({9}), itemFill | itemNoExt, disc, red, turned, {}, 1.0, 0, grey, {L"STEEL", 0.25, 2, true}, {});
    gdx.imagePicture(path({8}), itemTransparent, L"panel.bmp", 2001, {0, 0, 0}, {64, 48, 0});
    gdx.imageTxt(path({7}), 0x100, L"Riegel 50/120 (±0,5)", red, turned, L"CC", {0.1, 0, 0}, {});
    gdx.mtxSet(path({1}), turned * turned * turned);
    gdx.cModeSet(path({2}), 3);
    gdx.removeItemStack(path({0, 8}));
    gdx.displListSort();
    gdx.viewMtxSet(getViewMtx({-3, -2, 0}, {97, 61, 0}, 480, 640, 0.05));
    return gdx;
}

TEST(Golden, ReferenceObjectHasTheSameBitsInEveryBuild)
{
    const Gdx gdx = reference();
    CVekPoint3d min;
    CVekPoint3d max;
    ASSERT_TRUE(gdx.extmaxGet(min, max));
    Hash hash;
    const CVekArrayTempl<CVekDisplayItem>& list = gdx.getDisplayList();
    hash << list << min << max << gdx.viewMtxGet();
    RecordProperty("hash", std::to_string(hash.value()));
    // Changes only with a change of what is stored; then every build gives the new value.
    EXPECT_EQ(hash.value(), 0x269A423B08FB9EA3u);
}

} // namespace

#include "core/data/chain.h"

#include "core/data/kinds.h"

#include <cstring>
#include <limits>

namespace VEK
{

namespace
{

const CVekVector3d kUsualNormal(0.0, 0.0, 1.0);

std::int64_t tagOf(const CVekVertex& vertex)
{
    std::int64_t tag = 0;
    static_assert(sizeof tag == sizeof vertex.tag);
    std::memcpy(&tag, vertex.tag, sizeof tag);
    return tag;
}

bool sameBits(const CVekVector3d& a, const CVekVector3d& b)
{
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

} // namespace

void CChain::node(resbuf* chain)
{
    m_complete = m_complete && chain;
    if (!chain)
        return;
    if (m_last)
        m_last->rbnext = chain;
    else
        m_chain = chain;
    m_last = chain;
    while (m_last->rbnext)
        m_last = m_last->rbnext;
}

void CChain::add(unsigned long value)
{
    if (value > static_cast<unsigned long long>(std::numeric_limits<std::int64_t>::max()))
        return add(static_cast<double>(value));
    resbuf* rb = vekNewRb(rbInt64);
    if (rb)
        rb->resval.mnInt64 = static_cast<std::int64_t>(value);
    node(rb);
}

void CChain::add(const CVekPoint3d& value)
{
    resbuf* rb = vekNewRb(rbPoint3d);
    for (int i = 0; rb && i < 3; ++i)
        rb->resval.rpoint[i] = value[i];
    node(rb);
}

void CChain::add(const CVekMatrix3d& value)
{
    const CVekMatrix3d::Rows& rows = value;
    node(rbListBegin);
    for (const auto& row : rows) {
        node(rbListBegin);
        for (double number : row)
            add(number);
        node(rbListEnd);
    }
    node(rbListEnd);
}

void CChain::add(const CVekColor& value)
{
    node(rbListBegin);
    node(mkResbuf(static_cast<int>(value.colorIndex()), rbShort));
    add(static_cast<int>(value.color()));
    add(value.colorName());
    add(value.bookName());
    node(rbListEnd);
}

void CChain::add(const CHatchProp& value)
{
    node(rbListBegin);
    add(value.name);
    add(value.angle);
    add(value.scale);
    add(value.crossed);
    node(rbListEnd);
}

void CChain::add(const CVekVertex& value)
{
    node(rbListBegin);
    add(value.start);
    add(value.end);
    add(value.bulge);
    if (const std::int64_t tag = tagOf(value)) {
        resbuf* rb = vekNewRb(rbInt64);
        if (rb)
            rb->resval.mnInt64 = tag;
        node(rb);
    }
    node(rbListEnd);
}

void CChain::add(const CVekVertexArray& value)
{
    const CVekPoint3d normal = value.normal().asPoint();
    addList(value, sameBits(value.normal(), kUsualNormal) ? nullptr : &normal);
}

void CChain::add(const CVekDataKey& key)
{
    const int number = key;
    if (key.isText())
        node(mkResbuf(static_cast<const wchar_t*>(key), key.type()));
    else
        node(mkResbuf(number, number == static_cast<short>(number) ? rbShort : rbLong));
}

void CChain::addLeaf(const CVekDataItem& item)
{
    switch (item.kind()) {
#define VEK_ADD(T, kind)                                                                                               \
    case DataKind::kind: return add(*item.peek<T>());
        VEK_SCALAR_KINDS(VEK_ADD)
        VEK_OBJECT_KINDS(VEK_ADD)
#undef VEK_ADD
    default: return node(rbNil);
    }
}

resbuf* CChain::take()
{
    m_last = nullptr;
    if (!m_complete)
        m_chain = CUniqResbuf();
    return m_chain.release();
}

bool CChainReader::isAt(short restype) const
{
    return m_at && m_at->restype == restype;
}

bool CChainReader::skip(short restype)
{
    const bool good = isAt(restype);
    if (good)
        m_at = m_at->rbnext;
    return good;
}

bool CChainReader::isEntry() const
{
    const resbuf* key = isAt(rbListBegin) ? m_at->rbnext : nullptr;
    return key && key->rbnext && key->rbnext->restype == rbDot;
}

bool CChainReader::read(int& value)
{
    if (isAt(rbShort))
        value = m_at->resval.rint;
    else if (isAt(rbLong))
        value = m_at->resval.rlong;
    else
        return false;
    m_at = m_at->rbnext;
    return true;
}

bool CChainReader::read(std::int64_t& value)
{
    if (!isAt(rbInt64))
        return false;
    value = m_at->resval.mnInt64;
    m_at = m_at->rbnext;
    return true;
}

bool CChainReader::read(double& value)
{
    if (isAt(rbReal)) {
        value = m_at->resval.rreal;
        m_at = m_at->rbnext;
        return true;
    }
    int number = 0;
    const bool good = read(number);
    if (good)
        value = number;
    return good;
}

bool CChainReader::read(CVekString& value)
{
    if (!isAt(rbString) && !isAt(rbString2))
        return false;
    value = m_at->resval.rstring;
    m_at = m_at->rbnext;
    return true;
}

bool CChainReader::read(CVekPoint3d& value)
{
    if (!isAt(rbPoint3d))
        return false;
    value.set(m_at->resval.rpoint[0], m_at->resval.rpoint[1], m_at->resval.rpoint[2]);
    m_at = m_at->rbnext;
    return true;
}

bool CChainReader::read(CVekMatrix3d& value)
{
    const resbuf* start = m_at;
    CVekMatrix3d::Rows& rows = value;
    bool good = skip(rbListBegin);
    for (auto& row : rows)
        good = good && list(row[0], row[1], row[2], row[3]);
    good = good && skip(rbListEnd);
    if (!good)
        m_at = start;
    return good;
}

bool CChainReader::read(CVekColor& value)
{
    int index = 0;
    int rgb = 0;
    CVekString colorName;
    CVekString bookName;
    if (!list(index, rgb, colorName, bookName))
        return false;
    value = colorOf(index, static_cast<unsigned long>(rgb), colorName, bookName);
    return true;
}

bool CChainReader::read(CHatchProp& value)
{
    int crossed = 0;
    if (!list(value.name, value.angle, value.scale, crossed))
        return false;
    value.crossed = crossed != 0;
    return true;
}

bool CChainReader::read(CVekVertex& value)
{
    std::int64_t tag = 0;
    if (!list(value.start, value.end, value.bulge) && !list(value.start, value.end, value.bulge, tag))
        return false;
    std::memcpy(value.tag, &tag, sizeof tag);
    return true;
}

bool CChainReader::read(CVekVertexArray& value)
{
    const resbuf* start = m_at;
    value = CVekVertexArray();
    if (skip(rbNil))
        return true;
    bool good = skip(rbListBegin);
    CVekVertex vertex;
    while (good && isAt(rbListBegin)) {
        good = read(vertex);
        if (good)
            value.append(vertex);
    }
    CVekPoint3d normal;
    if (good && read(normal))
        value.setNormal(normal.asVector());
    good = good && skip(rbListEnd);
    if (!good)
        m_at = start;
    return good;
}

bool CChainReader::read(CVekDataKey& key)
{
    int number = 0;
    CVekString text;
    const short type = isAt(rbString2) ? CVekDataKey::keyText2 : CVekDataKey::keyText;
    if (read(number))
        key.set(CVekDataKey::keyInt, number, 0);
    else if (read(text))
        key.set(type, text, 0);
    else
        return false;
    return true;
}

bool CChainReader::readLeaf(CVekDataItem& item)
{
    std::int64_t big = 0;
    if (read(big)) {
        if (big >= 0 && static_cast<std::uint64_t>(big) <= std::numeric_limits<unsigned long>::max())
            return item.put(static_cast<unsigned long>(big));
        if (big < 0 && big >= std::numeric_limits<int>::min())
            return item.put(static_cast<int>(big));
        return item.put(static_cast<double>(big));
    }
    if (skip(rbNil)) {
        item = CVekDataItem();
        return true;
    }
    return put<int>(item) || put<double>(item) || put<CVekString>(item) || put<CVekPoint3d>(item) ||
           put<CVekArrayTempl<int>>(item) || put<CVekArrayTempl<CVekString>>(item) || put<CVekPoint3dArray>(item) ||
           put<CVekMatrix3d>(item) || put<CVekColor>(item) || put<CHatchProp>(item) || put<CVekVertexArray>(item) ||
           put<VertexArrays>(item) || put<Regions>(item);
}

CVekColor colorOf(int index, unsigned long rgb, const wchar_t* colorName, const wchar_t* bookName)
{
    CVekColor color;
    color.setColorIndex(static_cast<short>(index));
    if (color.color() != rgb)
        color.setColor(rgb);
    color.setNames(colorName, bookName);
    return color;
}

} // namespace VEK

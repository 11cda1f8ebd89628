#include <vek/data/resbuf.h>

#include "core/data/chain.h"

#include <cmath>
#include <cwchar>

resbuf* vekNewRb(short restype)
{
    void* block = CVekObj::operator new(sizeof(resbuf));
    if (!block)
        return nullptr;
    resbuf* node = ::new (block) resbuf{};
    node->restype = restype;
    return node;
}

void vekRelRb(resbuf* chain)
{
    while (chain) {
        resbuf* next = chain->rbnext;
        if (chain->restype == VEK::rbString || chain->restype == VEK::rbString2)
            CVekObj::operator delete[](chain->resval.rstring);
        CVekObj::operator delete(chain);
        chain = next;
    }
}

namespace VEK
{

namespace
{

resbuf* lastOf(resbuf* chain)
{
    while (chain && chain->rbnext)
        chain = chain->rbnext;
    return chain;
}

template <class T>
resbuf* chainOf(const T& value)
{
    CChain chain;
    chain.add(value);
    return chain.take();
}

} // namespace

void CUniqResbuf::append(resbuf* chain)
{
    m_last = lastOf(m_last ? m_last : m_chain);
    (m_last ? m_last->rbnext : m_chain) = chain;
    if (chain)
        m_last = chain;
}

resbuf* mkResbuf(int value, short restype)
{
    return mkResbuf(static_cast<double>(value), restype);
}

resbuf* mkResbuf(double value, short restype)
{
    const double whole = std::trunc(value);
    const auto fits = [&](double low, double high) { return whole >= low && whole <= high; };
    const bool holds = restype == rbReal || (restype == rbShort && fits(-32768, 32767)) ||
                       (restype == rbLong && fits(-2147483648.0, 2147483647.0)) ||
                       (restype == rbInt64 && fits(-9223372036854775808.0, 9223372036854774784.0));
    resbuf* node = holds ? vekNewRb(restype) : nullptr;
    if (!node)
        return nullptr;
    switch (restype) {
    case rbShort: node->resval.rint = static_cast<short>(whole); break;
    case rbLong: node->resval.rlong = static_cast<std::int32_t>(whole); break;
    case rbInt64: node->resval.mnInt64 = static_cast<std::int64_t>(whole); break;
    default: node->resval.rreal = value; break;
    }
    return node;
}

resbuf* mkResbuf(const wchar_t* value, short restype)
{
    if (restype != rbString && restype != rbString2)
        return nullptr;
    const std::size_t size = (value ? std::wcslen(value) : 0) + 1;
    CUniqResbuf node(vekNewRb(restype));
    if (!node)
        return nullptr;
    node->resval.rstring = static_cast<wchar_t*>(CVekObj::operator new[](size * sizeof(wchar_t)));
    if (!node->resval.rstring)
        return nullptr;
    std::wmemcpy(node->resval.rstring, value ? value : L"", size);
    return node.release();
}

resbuf* mkResbuf(const CVekArrayTempl<int>& value)
{
    return chainOf(value);
}

resbuf* mkResbuf(const CVekArrayTempl<CVekString>& value)
{
    return chainOf(value);
}

resbuf* mkResbuf(const CVekPoint3dArray& value)
{
    return chainOf(value);
}

resbuf* mkResbuf(const CVekMatrix3d& value)
{
    return chainOf(value);
}

resbuf* mkResbuf(const CVekVertexArray& value)
{
    return chainOf(value);
}

resbuf* mkResbuf(const VertexArrays& value)
{
    return chainOf(value);
}

resbuf* mkResbuf(const Regions& value)
{
    return chainOf(value);
}

resbuf* rbToList(resbuf* chain)
{
    CUniqResbuf content(chain);
    CUniqResbuf list(vekNewRb(rbListBegin));
    resbuf* end = vekNewRb(rbListEnd);
    if (!list || !end) {
        vekRelRb(end);
        return nullptr;
    }
    resbuf* last = lastOf(content);
    list->rbnext = content.release();
    (last ? last : static_cast<resbuf*>(list))->rbnext = end;
    return list.release();
}

} // namespace VEK

/// @file
/// The linked lists with which the host package and the data tree exchange values.
#pragma once

#include <vek/data/item.h>

#include <cstdint>

/// A node of the host package's linked list. The layout and the numbers are those of its published interface.
struct resbuf {
    resbuf* rbnext;
    short restype;
    union {
        double rreal;         ///< 5001
        double rpoint[3];     ///< 5009
        short rint;           ///< 5003
        std::int32_t rlong;   ///< 5010
        std::int64_t mnInt64; ///< 5031
        wchar_t* rstring;     ///< 5005; owned by the node
    } resval;
};

namespace VEK
{

/// The published result types that occur here.
enum RbType : short {
    rbReal = 5001,
    rbShort = 5003,
    rbString = 5005,
    rbPoint3d = 5009,
    rbLong = 5010,
    rbListBegin = 5016,
    rbListEnd = 5017,
    rbDot = 5018,
    rbNil = 5019,
    rbString2 = 5020,
    rbInt64 = 5031,
};

/// Status of a host function call that succeeded.
inline constexpr int kHostNormal = 5100;

/// Status of a host function call that failed.
inline constexpr int kHostError = -5001;

} // namespace VEK

/// A new node of that type with a zero value, owned by the caller; null when memory runs out.
VEK_API resbuf* vekNewRb(short restype);

/// Releases a whole chain with its texts; null is allowed.
VEK_API void vekRelRb(resbuf* chain);

namespace VEK
{

/// Owner of a chain.
class VEK_API CUniqResbuf : public CVekObj
{
public:
    CUniqResbuf() = default;

    /// Takes ownership of the chain.
    CUniqResbuf(resbuf* chain) : m_chain(chain) {}
    CUniqResbuf(CUniqResbuf&& other) noexcept : CVekObj() { exchange(other); }
    ~CUniqResbuf() override { vekRelRb(m_chain); }
    CUniqResbuf& operator=(CUniqResbuf other) noexcept
    {
        exchange(other);
        return *this;
    }

    operator resbuf*() const { return m_chain; }
    resbuf* operator->() const { return m_chain; }

    /// Appends a chain and takes ownership of it. It continues from the end of the previous append, so that a chain is
    /// built in linear time; nodes up to there may be modified meanwhile, but not removed.
    void append(resbuf* chain);

    /// Hands the chain to the caller.
    resbuf* release()
    {
        m_last = nullptr;
        return std::exchange(m_chain, nullptr);
    }

private:
    void exchange(CUniqResbuf& other) noexcept
    {
        std::swap(m_chain, other.m_chain);
        std::swap(m_last, other.m_last);
    }

    resbuf* m_chain = nullptr;
    resbuf* m_last = nullptr; ///< a node near the end; null to begin at the first one
};

/// One node of the given type with the number as its value; null for a type that holds no number.
VEK_API resbuf* mkResbuf(int value, short restype);
VEK_API resbuf* mkResbuf(double value, short restype);

/// One node of type 5005 or 5020 with a copy of the text.
VEK_API resbuf* mkResbuf(const wchar_t* value, short restype);

/// A chain that describes the value, owned by the caller; one nil node for a list without elements. An integer is a
/// 5010, a text a 5005, a point a 5009, a list stands between 5016 and 5017. A matrix is a list of four lists of four
/// reals; a polyline is a list of vertices, each a list of start point, end point and bulge; a region, or a list of
/// polylines, is a list of those, and a list of regions a list of those again. Normals and tags of polylines are lost.
VEK_API resbuf* mkResbuf(const CVekArrayTempl<int>& value);
VEK_API resbuf* mkResbuf(const CVekArrayTempl<CVekString>& value);
VEK_API resbuf* mkResbuf(const CVekPoint3dArray& value);
VEK_API resbuf* mkResbuf(const CVekMatrix3d& value);
VEK_API resbuf* mkResbuf(const CVekVertexArray& value);
VEK_API resbuf* mkResbuf(const VertexArrays& value);
VEK_API resbuf* mkResbuf(const Regions& value);

/// Wraps a chain as one list, between list begin and list end, and takes ownership of it; null gives an empty list.
VEK_API resbuf* rbToList(resbuf* chain);

/// Reads a list of regions and advances the pointer past it; a nil is an empty list. The caller still owns the nodes.
/// @param reserved pass 0
/// @return false, with value and pointer unchanged, if the chain does not begin with such a list
VEK_API bool fromRb(Regions& value, resbuf*& chain, int reserved);

/// Reads an item as `CVekDataItem::mkLisp` describes it, a directory as a list (`rbToList`), and advances the pointer
/// past it. The caller still owns the nodes.
/// @param reserved pass 0
/// @return false, with value and pointer unchanged, if the chain does not begin with a value
VEK_API bool fromRb(CVekDataItem& value, resbuf*& chain, int reserved);

} // namespace VEK

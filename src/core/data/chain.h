/// @file
/// Writing and reading `resbuf` chains node by node.
#pragma once

#include <vek/data/resbuf.h>

namespace VEK
{

/// Builds a chain by appending.
class CChain
{
public:
    CChain() = default;
    CChain(const CChain&) = delete;
    CChain& operator=(const CChain&) = delete;

    /// Appends a whole chain and takes ownership of it; null means that memory ran out.
    void node(resbuf* chain);
    void node(short restype) { node(vekNewRb(restype)); }

    /// Add a value in the form that `mkResbuf` and `CVekDataItem::mkLisp` document.
    void add(bool value) { node(mkResbuf(static_cast<int>(value), rbShort)); }
    void add(int value) { node(mkResbuf(value, rbLong)); }
    void add(unsigned long value);
    void add(double value) { node(mkResbuf(value, rbReal)); }
    void add(Vek::lUnit value) { node(mkResbuf(static_cast<int>(value), rbShort)); }
    void add(const CVekString& value) { node(mkResbuf(value, rbString)); }
    void add(const CVekPoint3d& value);
    void add(const CVekMatrix3d& value);
    void add(const CVekColor& value);
    void add(const CHatchProp& value);
    void add(const CVekVertex& value);
    void add(const CVekVertexArray& value);
    void add(const CVekDataKey& key);

    template <class T>
    void add(const CVekArrayTempl<T>& values)
    {
        addList(values, nullptr);
    }

    /// Adds the value of an item that is not a directory; nil if it has none.
    void addLeaf(const CVekDataItem& item);

    /// The chain, which the caller then owns; null if memory ran out.
    resbuf* take();

private:
    template <class T>
    void addList(const CVekArrayTempl<T>& values, const CVekPoint3d* last)
    {
        if (values.len() == 0)
            return node(rbNil);
        node(rbListBegin);
        for (const T& value : values)
            add(value);
        if (last)
            add(*last);
        node(rbListEnd);
    }

    CUniqResbuf m_chain;
    resbuf* m_last = nullptr;
    bool m_complete = true;
};

/// Reads values from a chain. Each operation reads one value in the form of `CChain::add` and advances past it, or
/// returns false without advancing; the value may then be incomplete.
class CChainReader
{
public:
    explicit CChainReader(const resbuf* chain) : m_at(chain) {}

    const resbuf* at() const { return m_at; }

    /// Whether the current node has that type.
    bool isAt(short restype) const;

    /// Advances past the current node if it has that type.
    bool skip(short restype);

    /// Whether an entry of a directory begins here: a list that begins with a key and a dot.
    bool isEntry() const;

    bool read(int& value);
    bool read(std::int64_t& value);
    bool read(double& value);
    bool read(CVekString& value);
    bool read(CVekPoint3d& value);
    bool read(CVekMatrix3d& value);
    bool read(CVekColor& value);
    bool read(CHatchProp& value);
    bool read(CVekVertex& value);
    bool read(CVekVertexArray& value);
    bool read(CVekDataKey& key);

    template <class T>
    bool read(CVekArrayTempl<T>& values)
    {
        const resbuf* start = m_at;
        values.setLogicalLength(0);
        if (skip(rbNil))
            return true;
        bool good = skip(rbListBegin);
        while (good && !skip(rbListEnd)) {
            T value;
            good = read(value);
            if (good)
                values.append(std::move(value));
        }
        if (!good)
            m_at = start;
        return good;
    }

    /// Reads one value of a leaf, whatever its type, into an item.
    bool readLeaf(CVekDataItem& item);

private:
    template <class... T>
    bool list(T&... values)
    {
        const resbuf* start = m_at;
        const bool good = skip(rbListBegin) && (read(values) && ...) && skip(rbListEnd);
        if (!good)
            m_at = start;
        return good;
    }

    template <class T>
    bool put(CVekDataItem& item)
    {
        T value{};
        return read(value) && item.put<T>(std::move(value));
    }

    const resbuf* m_at;
};

/// A colour from what its accessors returned.
CVekColor colorOf(int index, unsigned long rgb, const wchar_t* colorName, const wchar_t* bookName);

} // namespace VEK

/// @file
/// Hash maps.
#pragma once

#include <afx.h>

#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

/// The hash and equality of keys; a program may specialise them for a key type.
template <class ARG_KEY>
inline UINT AFXAPI HashKey(ARG_KEY key)
{
    using Key = std::remove_cv_t<std::remove_reference_t<ARG_KEY>>;
    return static_cast<UINT>(std::hash<Key>()(key));
}
template <>
inline UINT AFXAPI HashKey<LPCWSTR>(LPCWSTR key)
{
    return static_cast<UINT>(std::hash<std::wstring_view>()(key));
}
template <>
inline UINT AFXAPI HashKey<const CString&>(const CString& key)
{
    return HashKey<LPCWSTR>(key);
}
template <class TYPE, class ARG_TYPE>
inline BOOL AFXAPI CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2)
{
    return *pElement1 == *pElement2;
}

struct __POSITION;
using POSITION = __POSITION*;

/// Values by key. Iteration is in the order of the buckets, which has no meaning; it must not remove any pair but the
/// one just returned.
template <class KEY, class ARG_KEY = const KEY&, class VALUE = KEY, class ARG_VALUE = const VALUE&>
class CMap : public CObject
{
public:
    struct CPair {
        const KEY key;
        VALUE value;
    };

    explicit CMap(INT_PTR nBlockSize = 10) { static_cast<void>(nBlockSize); }
    ~CMap() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_count; }
    INT_PTR GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0; }
    UINT GetHashTableSize() const { return m_size; }
    /// Only while the map is empty.
    void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE)
    {
        static_cast<void>(bAllocNow);
        ASSERT(m_count == 0);
        m_table.reset();
        m_size = hashSize;
    }

    BOOL Lookup(ARG_KEY key, VALUE& rValue) const
    {
        const CPair* pair = PLookup(key);
        if (pair != nullptr)
            rValue = pair->value;
        return pair != nullptr;
    }
    const CPair* PLookup(ARG_KEY key) const { return find(key); }
    CPair* PLookup(ARG_KEY key) { return find(key); }
    /// The value of the key, a new one if it is absent.
    VALUE& operator[](ARG_KEY key);
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
    BOOL RemoveKey(ARG_KEY key);
    void RemoveAll();

    POSITION GetStartPosition() const { return reinterpret_cast<POSITION>(next(0, nullptr)); }
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const
    {
        const Node* node = reinterpret_cast<const Node*>(rNextPosition);
        rKey = node->key;
        rValue = node->value;
        rNextPosition = reinterpret_cast<POSITION>(next(node->bucket + 1, node->next));
    }
    CPair* PGetFirstAssoc() { return next(0, nullptr); }
    const CPair* PGetFirstAssoc() const { return next(0, nullptr); }
    CPair* PGetNextAssoc(const CPair* pair) { return after(pair); }
    const CPair* PGetNextAssoc(const CPair* pair) const { return after(pair); }

private:
    struct Node : CPair {
        Node* next;
        UINT bucket;
    };

    UINT bucketOf(ARG_KEY key) const { return HashKey<ARG_KEY>(key) % m_size; }
    Node* find(ARG_KEY key) const
    {
        Node* node = m_table == nullptr ? nullptr : m_table[bucketOf(key)];
        while (node != nullptr && !CompareElements(&node->key, &key))
            node = node->next;
        return node;
    }
    /// `node`, or if it is null the first node of the following buckets.
    Node* next(UINT bucket, Node* node) const
    {
        if (m_table == nullptr || node != nullptr)
            return node;
        while (bucket < m_size && m_table[bucket] == nullptr)
            ++bucket;
        return bucket < m_size ? m_table[bucket] : nullptr;
    }
    Node* after(const CPair* pair) const
    {
        const Node* node = static_cast<const Node*>(pair);
        return next(node->bucket + 1, node->next);
    }

    std::unique_ptr<Node*[]> m_table; ///< allocated with the first pair
    UINT m_size = 17;
    INT_PTR m_count = 0;
};

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
VALUE& CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::operator[](ARG_KEY key)
{
    Node* node = find(key);
    if (node == nullptr) {
        if (m_table == nullptr)
            m_table.reset(new Node*[m_size]());
        const UINT bucket = bucketOf(key);
        node = new Node{{key, VALUE()}, m_table[bucket], bucket};
        m_table[bucket] = node;
        ++m_count;
    }
    return node->value;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
BOOL CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveKey(ARG_KEY key)
{
    if (m_table == nullptr)
        return FALSE;
    for (Node** link = &m_table[bucketOf(key)]; *link != nullptr; link = &(*link)->next) {
        if (CompareElements(&(*link)->key, &key)) {
            Node* removed = std::exchange(*link, (*link)->next);
            delete removed;
            --m_count;
            return TRUE;
        }
    }
    return FALSE;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveAll()
{
    for (UINT bucket = 0; m_table != nullptr && bucket < m_size; ++bucket) {
        while (m_table[bucket] != nullptr)
            delete std::exchange(m_table[bucket], m_table[bucket]->next);
    }
    m_table.reset();
    m_count = 0;
}

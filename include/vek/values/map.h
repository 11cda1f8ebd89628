/// @file
/// The sorted map.
#pragma once

#include <vek/values/object.h>

#include <vector>

/// The order of a map without its types: pointers to records, ascending, in blocks of bounded size, so that an
/// insertion moves a part of one block only, however many records there are.
class VEK_API CVekMapOrder
{
public:
    /// Where a key stands or would stand.
    struct Place {
        unsigned block = 0;
        unsigned slot = 0;
    };

    int len() const { return m_starts.empty() ? 0 : static_cast<int>(m_starts.back()); }

    /// The first place whose record is not less than the sought key.
    /// @param less says whether a record's key lies below the sought one
    Place lowerBound(const void* key, bool (*less)(const void* record, const void* key)) const;

    /// The record at a place, or null behind the last one of a block.
    void* at(Place place) const;

    /// The record of a number from 0 on; null outside.
    void* at(int index) const;

    /// The place behind the last record.
    Place end() const;

    int indexOf(Place place) const;
    void insert(Place place, void* record);
    void erase(Place place);
    void clear();
    void swap(CVekMapOrder& other) noexcept;

private:
    static constexpr unsigned kBlock = 512;

    std::vector<std::vector<void*>> m_blocks; ///< none of them empty
    std::vector<unsigned> m_starts;           ///< number of records up to the end of each block
};

/// Sorted map: heap records of a key and a value, ascending by `<` of the keys. The address of a value stays valid
/// until its record is removed. A copy is deep.
template <class K, class V>
class CVekMapTempl : public CVekObj
{
public:
    CVekMapTempl() = default;
    CVekMapTempl(const CVekMapTempl& other) : CVekObj() { addAll(other); }
    CVekMapTempl(CVekMapTempl&& other) noexcept { m_order.swap(other.m_order); }
    ~CVekMapTempl() override { removeAll(); }
    CVekMapTempl& operator=(const CVekMapTempl& other)
    {
        if (this != &other) {
            removeAll();
            addAll(other);
        }
        return *this;
    }
    CVekMapTempl& operator=(CVekMapTempl&& other) noexcept
    {
        m_order.swap(other.m_order);
        return *this;
    }

    /// Number of records.
    int len() const { return m_order.len(); }

    /// Searches a key.
    /// @param index receives the record's number on a hit, and the insertion point otherwise: the number that the
    /// key would get
    /// @return whether the key is there
    bool find(const K& key, int& index) const
    {
        const CVekMapOrder::Place place = m_order.lowerBound(&key, less);
        index = m_order.indexOf(place);
        return hit(place, key) != nullptr;
    }

    /// The value of a key, owned by the map, or null when the key is absent.
    V* get(const K& key)
    {
        Record* record = hit(m_order.lowerBound(&key, less), key);
        return record ? &record->value : nullptr;
    }
    const V* get(const K& key) const { return const_cast<CVekMapTempl*>(this)->get(key); }

    /// The value of a key; an absent key is entered with a default value.
    V& operator[](const K& key)
    {
        const CVekMapOrder::Place place = m_order.lowerBound(&key, less);
        Record* record = hit(place, key);
        if (!record) {
            record = new Record{key, V()};
            m_order.insert(place, record);
        }
        return record->value;
    }

    /// The key of a number below `len()`; a default key outside.
    const K& keyAt(int index) const
    {
        const Record* record = static_cast<const Record*>(m_order.at(index));
        return record ? record->key : outside().key;
    }

    /// The value of a number below `len()`; a shared default value outside.
    V& valueAt(int index)
    {
        Record* record = static_cast<Record*>(m_order.at(index));
        return record ? record->value : outside().value;
    }
    const V& valueAt(int index) const { return const_cast<CVekMapTempl*>(this)->valueAt(index); }

    /// Removes a record.
    /// @return false when the key is absent
    bool remove(const K& key)
    {
        const CVekMapOrder::Place place = m_order.lowerBound(&key, less);
        Record* record = hit(place, key);
        if (!record)
            return false;
        m_order.erase(place);
        delete record;
        return true;
    }

    /// Removes all records.
    void removeAll()
    {
        for (int i = 0; i < len(); ++i)
            delete static_cast<Record*>(m_order.at(i));
        m_order.clear();
    }

private:
    struct Record {
        K key;
        V value;
    };

    static bool less(const void* record, const void* key)
    {
        return static_cast<const Record*>(record)->key < *static_cast<const K*>(key);
    }

    Record* hit(CVekMapOrder::Place place, const K& key) const
    {
        Record* record = static_cast<Record*>(m_order.at(place));
        return record && record->key == key ? record : nullptr;
    }

    void addAll(const CVekMapTempl& other)
    {
        for (int i = 0; i < other.len(); ++i)
            m_order.insert(m_order.end(), new Record(*static_cast<const Record*>(other.m_order.at(i))));
    }

    static Record& outside()
    {
        static Record record{};
        record = Record{};
        return record;
    }

    CVekMapOrder m_order;
};

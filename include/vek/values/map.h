/// @file
/// The sorted map.
#pragma once

#include <vek/values/object.h>

#include <vector>

/// The untyped order of a map: pointers to records, ascending, in blocks of bounded size, so that an insertion moves
/// only part of one block, however many records there are.
class VEK_API CVekMapOrder
{
public:
    /// Where a key is or would be inserted.
    struct Place {
        unsigned block = 0;
        unsigned slot = 0;

        bool operator==(const Place&) const = default;
    };

    int len() const { return m_starts.empty() ? 0 : static_cast<int>(m_starts.back()); }

    /// The first place whose record is not less than the sought key.
    /// @param less whether a record's key is less than the sought one
    Place lowerBound(const void* key, bool (*less)(const void* record, const void* key)) const;

    /// The record at a place, or null past the last one of a block.
    void* at(Place place) const;

    /// The record at an index from 0; null if out of range.
    void* at(int index) const;

    /// The place past the last record.
    Place end() const;

    /// The place after one that has a record.
    Place next(Place place) const;

    int indexOf(Place place) const;

    /// @return false, with nothing changed, when memory runs out
    bool insert(Place place, void* record) noexcept;

    void erase(Place place);
    void clear();
    void swap(CVekMapOrder& other) noexcept;

private:
    static constexpr unsigned kBlock = 512;

    std::vector<std::vector<void*>> m_blocks; ///< none of them empty
    std::vector<unsigned> m_starts;           ///< number of records up to the end of each block
};

/// Sorted map: heap records of a key and a value, ascending by `<` of the keys. The address of a value stays valid
/// until its record is removed. A copy is deep. When memory runs out the map stays as it was, and a new copy is empty;
/// see `<vek/values/memory.h>`.
template <class K, class V>
class CVekMapTempl : public CVekObj
{
    template <class R>
    class Walk;

public:
    /// An entry of the map: `for (auto& [key, value] : map)` iterates in the order of the keys. Inserting or removing a
    /// record invalidates all iterators.
    struct Record {
        const K key;
        V value;

        static void* operator new(std::size_t size) noexcept { return CVekObj::operator new(size); }
        static void operator delete(void* block) noexcept { CVekObj::operator delete(block); }
    };

    CVekMapTempl() = default;
    CVekMapTempl(const CVekMapTempl& other) : CVekMapTempl() { addAll(other); }
    CVekMapTempl(CVekMapTempl&& other) noexcept { m_order.swap(other.m_order); }
    ~CVekMapTempl() override { removeAll(); }
    CVekMapTempl& operator=(const CVekMapTempl& other)
    {
        if (this != &other) {
            CVekMapTempl copy;
            if (copy.addAll(other))
                m_order.swap(copy.m_order);
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
    /// @param index receives the record's index if found, otherwise the insertion point: the index that the key would
    /// get
    /// @return whether the key is present
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

    /// The value of a key; an absent key is inserted with a default value. A shared default value when memory runs out.
    V& operator[](const K& key)
    {
        const CVekMapOrder::Place place = m_order.lowerBound(&key, less);
        if (Record* there = hit(place, key))
            return there->value;
        const unsigned long shortages = VEK::memoryShortages();
        Record* record = new Record{key, V()};
        if (record && VEK::memoryShortages() == shortages && m_order.insert(place, record))
            return record->value;
        delete record;
        return outsideValue();
    }

    /// The key at an index below `len()`; a default key if out of range.
    const K& keyAt(int index) const
    {
        const Record* record = static_cast<const Record*>(m_order.at(index));
        static const K outside{};
        return record ? record->key : outside;
    }

    /// The value at an index below `len()`; a shared default value if out of range.
    V& valueAt(int index)
    {
        Record* record = static_cast<Record*>(m_order.at(index));
        return record ? record->value : outsideValue();
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
        for (Record& record : *this)
            delete &record;
        m_order.clear();
    }

    auto begin() { return Walk<Record>(m_order, {}); }
    auto end() { return Walk<Record>(m_order, m_order.end()); }
    auto begin() const { return Walk<const Record>(m_order, {}); }
    auto end() const { return Walk<const Record>(m_order, m_order.end()); }

private:
    template <class R>
    class Walk
    {
    public:
        Walk(const CVekMapOrder& order, CVekMapOrder::Place place) : m_order(&order), m_place(place) {}

        R& operator*() const { return *static_cast<R*>(m_order->at(m_place)); }
        Walk& operator++()
        {
            m_place = m_order->next(m_place);
            return *this;
        }
        bool operator==(const Walk& other) const { return m_place == other.m_place; }

    private:
        const CVekMapOrder* m_order;
        CVekMapOrder::Place m_place;
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

    /// Copies all records into this map, which must be empty and stays so when memory runs out.
    bool addAll(const CVekMapTempl& other)
    {
        const unsigned long shortages = VEK::memoryShortages();
        for (const Record& record : other) {
            Record* copy = new Record(record);
            if (!copy || !m_order.insert(m_order.end(), copy)) {
                delete copy;
                break;
            }
        }
        const bool complete = VEK::memoryShortages() == shortages;
        if (!complete)
            removeAll();
        return complete;
    }

    static V& outsideValue()
    {
        static V value{};
        value = V{};
        return value;
    }

    CVekMapOrder m_order;
};

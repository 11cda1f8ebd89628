#include <vek/data/children.h>
#include <vek/data/item.h>

#include <chrono>
#include <cstdint>
#include <cwchar>

namespace VEK
{

namespace
{

constexpr unsigned kFew = 8; ///< up to so many items, a linear search is faster

/// Different in every process, so that nobody can write a data file whose names all collide in one slot.
std::uint64_t seed()
{
    static const std::uint64_t value = [] {
        const auto now = std::chrono::high_resolution_clock::now().time_since_epoch().count();
        return static_cast<std::uint64_t>(now) ^ reinterpret_cast<std::uintptr_t>(&kFew);
    }();
    return value;
}

unsigned hashOf(const DataName& name)
{
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15u;
    std::uint64_t hash = seed() + (name.text ? name.length : ~std::uint64_t{0} - static_cast<unsigned>(name.number));
    hash *= kOdd;
    for (unsigned i = 0; name.text && i < name.length; ++i)
        hash = ((hash ^ (hash >> 29)) + static_cast<std::uint64_t>(name.text[i])) * kOdd;
    return static_cast<unsigned>((hash ^ (hash >> 31)) >> 8);
}

bool hasName(const CVekDataItem& item, const DataName& name)
{
    const CVekDataKey& key = *item.getKey();
    if (!name.text)
        return key.type() == CVekDataKey::keyInt && static_cast<int>(key) == name.number;
    const wchar_t* text = key;
    return key.isText() && std::wcsncmp(text, name.text, name.length) == 0 && text[name.length] == L'\0';
}

} // namespace

DataName DataName::of(const CVekDataKey& key)
{
    if (!key.isText())
        return {nullptr, 0, static_cast<int>(key)};
    const wchar_t* text = key;
    return {text, static_cast<unsigned>(std::wcslen(text)), 0};
}

CVekDataItem* CDataChildren::from(unsigned& place) const
{
    while (place < places() && !at(place))
        ++place;
    return at(place);
}

CVekDataItem* CDataChildren::after(const CVekDataItem& item) const
{
    unsigned place = item.m_slot + 1;
    return from(place);
}

int CDataChildren::find(const DataName& name) const
{
    if (m_slots.len() == 0) {
        for (unsigned place = 0; place < places(); ++place) {
            const CVekDataItem* item = at(place);
            if (item && hasName(*item, name))
                return static_cast<int>(place);
        }
        return -1;
    }
    const Slot* slots = m_slots.begin();
    const unsigned mask = static_cast<unsigned>(m_slots.len()) - 1;
    const unsigned hash = hashOf(name);
    for (unsigned i = hash & mask; slots[i].place != kFree; i = (i + 1) & mask)
        if (slots[i].hash == hash && hasName(*at(slots[i].place), name))
            return static_cast<int>(slots[i].place);
    return -1;
}

bool CDataChildren::append(CVekDataItem* item)
{
    if (places() > 2 * m_count + kFew)
        closeGaps();
    item->m_slot = places();
    m_items.append(item);
    if (places() == item->m_slot)
        return false;
    ++m_count;
    if (2 * m_count > static_cast<unsigned>(m_slots.len()) && m_count > kFew)
        growSlots();
    else if (m_slots.len() > 0)
        enter({hashOf(DataName::of(*item->getKey())), item->m_slot});
    return true;
}

void CDataChildren::replace(unsigned place, CVekDataItem* item)
{
    item->m_slot = place;
    m_items.begin()[place] = item;
}

void CDataChildren::remove(unsigned place)
{
    leave(place);
    m_items.begin()[place] = nullptr;
    --m_count;
    unsigned end = places();
    while (end > 0 && !at(end - 1))
        --end;
    m_items.setLogicalLength(static_cast<int>(end));
}

void CDataChildren::closeGaps()
{
    unsigned end = 0;
    for (CVekDataItem* item : m_items) {
        if (item) {
            m_items.begin()[end] = item;
            item->m_slot = end++;
        }
    }
    m_items.setLogicalLength(static_cast<int>(end));
    if (m_slots.len() > 0) {
        dropSlots();
        growSlots();
    }
}

void CDataChildren::dropSlots()
{
    m_slots = CVekArrayTempl<Slot>();
}

/// When memory runs out the items are searched one by one.
void CDataChildren::growSlots()
{
    CVekArrayTempl<Slot> old;
    old.swap(m_slots);
    unsigned wanted = 4 * kFew;
    while (wanted < 4 * m_count && wanted < (1u << 30))
        wanted *= 2;
    if (m_slots.setLogicalLength(static_cast<int>(wanted)) != static_cast<int>(wanted))
        return dropSlots();
    for (const Slot& slot : old)
        if (slot.place != kFree)
            enter(slot);
    // The old table has the hashes of all but the last item.
    for (unsigned place = old.len() > 0 ? places() - 1 : 0; place < places(); ++place)
        if (at(place))
            enter({hashOf(DataName::of(*at(place)->getKey())), place});
}

void CDataChildren::enter(const Slot& slot)
{
    Slot* slots = m_slots.begin();
    const unsigned mask = static_cast<unsigned>(m_slots.len()) - 1;
    unsigned i = slot.hash & mask;
    while (slots[i].place != kFree)
        i = (i + 1) & mask;
    slots[i] = slot;
}

/// Frees a slot and moves up later ones that could be there, so that no search ends too early.
void CDataChildren::leave(unsigned place)
{
    if (m_slots.len() == 0)
        return;
    Slot* slots = m_slots.begin();
    const unsigned mask = static_cast<unsigned>(m_slots.len()) - 1;
    unsigned hole = hashOf(DataName::of(*at(place)->getKey())) & mask;
    while (slots[hole].place != place)
        hole = (hole + 1) & mask;
    for (unsigned i = (hole + 1) & mask; slots[i].place != kFree; i = (i + 1) & mask) {
        const unsigned home = slots[i].hash & mask;
        if (((i - home) & mask) >= ((i - hole) & mask)) {
            slots[hole] = slots[i];
            hole = i;
        }
    }
    slots[hole] = Slot();
}

} // namespace VEK

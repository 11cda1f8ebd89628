#include <vek/values/map.h>

#include <algorithm>
#include <new>

CVekMapOrder::Place CVekMapOrder::lowerBound(const void* key, bool (*less)(const void*, const void*)) const
{
    const auto below = [&](const void* record) { return less(record, key); };
    const auto block = std::partition_point(m_blocks.begin(), m_blocks.end(),
                                            [&](const auto& records) { return below(records.back()); });
    if (block == m_blocks.end())
        return end();
    const auto slot = std::partition_point(block->begin(), block->end(), below);
    return {static_cast<unsigned>(block - m_blocks.begin()), static_cast<unsigned>(slot - block->begin())};
}

CVekMapOrder::Place CVekMapOrder::end() const
{
    if (m_blocks.empty())
        return {};
    return {static_cast<unsigned>(m_blocks.size() - 1), static_cast<unsigned>(m_blocks.back().size())};
}

void* CVekMapOrder::at(Place place) const
{
    if (place.block >= m_blocks.size() || place.slot >= m_blocks[place.block].size())
        return nullptr;
    return m_blocks[place.block][place.slot];
}

void* CVekMapOrder::at(int index) const
{
    if (index < 0 || index >= len())
        return nullptr;
    const auto block = std::upper_bound(m_starts.begin(), m_starts.end(), static_cast<unsigned>(index));
    const unsigned first = block == m_starts.begin() ? 0 : *(block - 1);
    return m_blocks[static_cast<std::size_t>(block - m_starts.begin())][static_cast<unsigned>(index) - first];
}

int CVekMapOrder::indexOf(Place place) const
{
    return static_cast<int>((place.block ? m_starts[place.block - 1] : 0) + place.slot);
}

CVekMapOrder::Place CVekMapOrder::next(Place place) const
{
    ++place.slot;
    if (place.slot == m_blocks[place.block].size() && place.block + 1 < m_blocks.size())
        return {place.block + 1, 0};
    return place;
}

bool CVekMapOrder::insert(Place place, void* record) noexcept
try {
    if (m_blocks.size() == m_blocks.capacity()) { // everything that may fail comes first
        m_blocks.reserve(2 * m_blocks.size() + 1);
        m_starts.reserve(2 * m_blocks.size() + 1);
    }
    if (m_blocks.empty()) {
        m_blocks.emplace_back(1, record);
        m_starts.push_back(1);
        return true;
    }
    std::vector<void*>* records = &m_blocks[place.block];
    if (records->size() == kBlock) {
        // A full block that grows at its end keeps its records: keys often arrive in ascending order.
        const unsigned kept = place.slot == kBlock ? kBlock : kBlock / 2;
        std::vector<void*> tail;
        tail.reserve(kBlock);
        tail.assign(records->begin() + kept, records->end());
        records->resize(kept);
        m_starts.insert(m_starts.begin() + place.block, m_starts[place.block] - (kBlock - kept));
        m_blocks.insert(m_blocks.begin() + place.block + 1, std::move(tail));
        if (place.slot > kept || kept == kBlock)
            place = {place.block + 1, place.slot - kept};
        records = &m_blocks[place.block];
    }
    records->insert(records->begin() + place.slot, record);
    for (auto end = m_starts.begin() + place.block; end != m_starts.end(); ++end)
        ++*end;
    return true;
} catch (const std::bad_alloc&) {
    VEK::memoryShort();
    return false;
}

void CVekMapOrder::erase(Place place)
{
    std::vector<void*>& records = m_blocks[place.block];
    records.erase(records.begin() + place.slot);
    for (auto end = m_starts.begin() + place.block; end != m_starts.end(); ++end)
        --*end;
    if (records.empty()) {
        m_blocks.erase(m_blocks.begin() + place.block);
        m_starts.erase(m_starts.begin() + place.block);
    }
}

void CVekMapOrder::clear()
{
    m_blocks.clear();
    m_starts.clear();
}

void CVekMapOrder::swap(CVekMapOrder& other) noexcept
{
    m_blocks.swap(other.m_blocks);
    m_starts.swap(other.m_starts);
}

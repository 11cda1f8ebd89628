// Pens and brushes that a device knows by a handle, looked up by their appearance.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace VEK
{

/// The table is small and an object that is evicted from it is deleted, so a picture of a million colours does not need
/// a million handles.
/// @tparam Handle of an object; a default one means none
/// @tparam kGroups a power of two
template <class Handle, std::size_t kGroups>
class ObjectTable
{
public:
    struct Entry {
        std::uint64_t look = 0;
        Handle handle = {};
    };

    /// The entry of a look; or the one to replace by it, whose look differs or which has no handle.
    template <class InUse>
    Entry& find(std::uint64_t look, InUse inUse)
    {
        const std::size_t group = ((look * 0x9E3779B97F4A7C15u >> 32) % kGroups) * kWays;
        for (std::size_t i = 0; i < kWays; ++i) {
            Entry& entry = m_entries[group + i];
            if (entry.handle == Handle{} || entry.look == look)
                return entry;
        }
        Entry* entry = nullptr;
        do
            entry = &m_entries[group + m_turn++ % kWays];
        while (inUse(entry->handle));
        return *entry;
    }

    auto begin() { return m_entries.begin(); }
    auto end() { return m_entries.end(); }

private:
    static constexpr std::size_t kWays = 4; ///< more than can be in use at a time
    std::array<Entry, kGroups * kWays> m_entries;
    std::size_t m_turn = 0;
};

} // namespace VEK

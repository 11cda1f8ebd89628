// Prefetching. A long list is read from memory once, and waiting for it takes longer than the work itself.
#pragma once

#include <vek/display/item.h>

#include <algorithm>

namespace VEK
{

/// Prefetch distances: first an item, and once that has arrived, the data stored apart from it.
inline constexpr int kFetchFar = 16;
inline constexpr int kFetchNear = 8;

inline void fetch([[maybe_unused]] const void* from, [[maybe_unused]] std::size_t size)
{
#ifdef __GNUC__ // other compilers do without
    for (std::size_t at = 0; at < size; at += 64)
        __builtin_prefetch(static_cast<const char*>(from) + at);
#endif
}

/// Prefetches what a plain polyline is drawn from: all but what only hatches, texts and pictures have.
inline void fetchPlain(const CVekDisplayItem& item)
{
    const char* const from = reinterpret_cast<const char*>(&item);
    fetch(from, static_cast<std::size_t>(reinterpret_cast<const char*>(&item.hatch) - from));
}

/// Prefetches the geometry of a short polyline, which is stored apart from its item.
inline void fetchGeometry(const CVekDisplayItem& item)
{
    fetch(item.vl.begin(), sizeof(CVekVertex) * static_cast<std::size_t>(std::min(item.vl.len(), 2)));
}

} // namespace VEK

/// @file
/// Memory settings of the benchmarks.
#pragma once

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace
{

/// Makes the process keep freed memory. Otherwise an iteration that ends by freeing a large list returns its pages to
/// the system, and the next one measures page faults, at about 2 us a page.
const bool keepsMemory = [] {
#ifdef __GLIBC__
    return mallopt(M_TRIM_THRESHOLD, 1 << 30) && mallopt(M_TOP_PAD, 1 << 24) && mallopt(M_MMAP_THRESHOLD, 1 << 30);
#else
    return false;
#endif
}();

/// The rate at which this core copies memory, inside and outside its caches, for comparison with the other figures.

void memoryCopy(benchmark::State& state)
{
    const std::string from(static_cast<std::size_t>(state.range(0)), 'x');
    std::string to = from;
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(memoryCopy)->Arg(1 << 14)->Arg(1 << 28);

} // namespace

/// @file
/// Memory that ends: the n-th allocation of `new` fails, alone or with all that follow it; with failing_malloc.h, every
/// allocation. It stands in one source of a program.
#pragma once

#include <vek/values/memory.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

class FailingMemory
{
public:
    FailingMemory(long number, bool lasting) : m_number(number), m_lasting(lasting) {}

    /// Runs a job while the memory ends.
    template <class Job>
    auto during(Job&& job)
    {
        const struct Armed {
            explicit Armed(FailingMemory* memory) { s_armed = memory; }
            ~Armed() { s_armed = nullptr; }
        } armed(this);
        return job();
    }

    /// Whether an allocation was refused so far.
    bool failed() const { return m_failed; }

    /// Runs a check with every allocation failing in turn, until none is left to fail; behind the first few hundred, in
    /// which a job does its work for the first time, ever fewer of them.
    /// @param check gets a `FailingMemory&` and calls its `during` once
    /// @return how many allocations failed that were alone in it
    template <class Check>
    static int forEveryAllocation(Check&& check)
    {
        int alone = 0;
        for (const bool lasting : {false, true}) {
            int rounds = 0;
            long number = 0;
            for (bool more = true; more; ++rounds, number += std::max(1L, number / 10 - 40)) {
                SCOPED_TRACE(testing::Message() << "allocation " << number << (lasting ? " and all behind it" : ""));
                FailingMemory memory(number, lasting);
                check(memory);
                more = memory.failed();
            }
            EXPECT_GT(rounds, 1) << "nothing was allocated";
            alone = lasting ? alone : rounds - 1;
        }
        return alone;
    }

    /// How often a job allocates.
    template <class Job>
    static long allocations(Job&& job)
    {
        const long before = s_allocations;
        job();
        return s_allocations - before;
    }

    static inline bool ledFromMalloc = false; ///< which is asked in place of `new`

    /// How many blocks of `new` exist.
    static inline std::atomic<long> blocks = 0;

    static bool refuses()
    {
        ++s_allocations;
        if (!s_armed || s_armed->m_number-- > 0)
            return false;
        const bool refused = s_armed->m_lasting || !s_armed->m_failed;
        s_armed->m_failed = true;
        return refused;
    }

private:
    static inline FailingMemory* s_armed = nullptr;
    static inline std::atomic<long> s_allocations = 0;

    long m_number;
    bool m_lasting;
    bool m_failed = false;
};

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (!FailingMemory::ledFromMalloc && FailingMemory::refuses())
        return nullptr;
    void* const block = std::malloc(size ? size : 1);
    FailingMemory::blocks += block != nullptr;
    return block;
}
void* operator new(std::size_t size)
{
    if (void* block = operator new(size, std::nothrow))
        return block;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept // inlined, g++ takes it for a mismatch
{
    FailingMemory::blocks -= block != nullptr;
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

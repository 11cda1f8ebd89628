#include <vek/values/pointer.h>

#include <new>

namespace
{

// Shared pointers may be in static objects of any module, so table and mutex are created on first use and live until
// the process ends.
std::vector<VEK::CPtrMap::Data>& table()
{
    static auto& data = *new std::vector<VEK::CPtrMap::Data>;
    return data;
}

std::mutex& tableGuard()
{
    static std::mutex& guard = *new std::mutex;
    return guard;
}

VEK::CPtrMap::Data& entryAt(int index)
{
    return table()[static_cast<std::size_t>(index)];
}

int g_firstFree = -1; ///< guarded like the table

using Guard = std::lock_guard<std::mutex>;

} // namespace

std::vector<VEK::CPtrMap::Data>& VEK::CPtrMap::m_DataArr = table();
std::mutex& VEK::CPtrMap::m_CrSec = tableGuard();

namespace VEK
{

CPtrMap::CPtrMap(const CPtrMap& other) : CVekObj(), m_index(other.m_index)
{
    if (m_index < 0)
        return;
    const Guard guard(tableGuard());
    ++entryAt(m_index).refs;
}

int CPtrMap::refCount() const
{
    if (m_index < 0)
        return 0;
    const Guard guard(tableGuard());
    return entryAt(m_index).refs;
}

void* CPtrMap::ptr() const
{
    if (m_index < 0)
        return nullptr;
    const Guard guard(tableGuard());
    return entryAt(m_index).ptr;
}

bool CPtrMap::newRef(void* object)
{
    if (!object || m_index >= 0)
        return false;
    const Guard guard(tableGuard());
    if (g_firstFree >= 0) {
        m_index = g_firstFree;
        Data& entry = entryAt(m_index);
        g_firstFree = entry.nextFree;
        entry = {1, object};
        return true;
    }
    try {
        table().push_back({1, object});
    } catch (const std::bad_alloc&) {
        memoryShort();
        return false;
    }
    m_index = static_cast<int>(table().size()) - 1;
    return true;
}

void* CPtrMap::decrRef()
{
    const int index = std::exchange(m_index, -1);
    if (index < 0)
        return nullptr;
    const Guard guard(tableGuard());
    Data& entry = entryAt(index);
    if (--entry.refs > 0)
        return nullptr;
    void* object = entry.ptr;
    entry = {0, nullptr, g_firstFree};
    g_firstFree = index;
    return object;
}

void* CPtrMap::releasePtr()
{
    if (m_index < 0)
        return nullptr;
    const Guard guard(tableGuard());
    return std::exchange(entryAt(m_index).ptr, nullptr);
}

} // namespace VEK

// Maps handles to objects, for one thread. A permanent object registers and unregisters itself; a temporary one belongs
// to the map, which deletes it when told that nobody can still hold it.
#pragma once

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>

template <class Handle, class Object>
class HandleMap
{
public:
    HandleMap() = default;
    HandleMap(const HandleMap&) = delete;
    HandleMap& operator=(const HandleMap&) = delete;
    ~HandleMap() { forget(0); }

    Object* permanent(Handle handle) const
    {
        const auto it = m_permanent.find(handle);
        return it == m_permanent.end() ? nullptr : it->second;
    }
    void enter(Handle handle, Object* object) { m_permanent[handle] = object; }
    void remove(Handle handle, Object* object)
    {
        const auto it = m_permanent.find(handle);
        if (it != m_permanent.end() && it->second == object)
            m_permanent.erase(it);
    }

    /// The permanent object, else the temporary one, which `make` creates when needed; null for a null handle.
    template <class Make>
    Object* object(Handle handle, int level, Make make)
    {
        if (handle == nullptr)
            return nullptr;
        Object* owner = permanent(handle);
        if (owner != nullptr)
            return owner;
        Temporary& slot = m_temporary[handle];
        if (slot.object == nullptr)
            slot = {make(), level};
        hold(*slot.object, handle); // this and alive() are found by the object's class, see thread_state.h
        return slot.object.get();
    }
    /// Drops the temporary objects made at this level of modal loops or deeper; those from before the loop began may
    /// still be held by a function that waits for its end.
    void forget(int level)
    {
        drop([level](const Temporary& each) { return each.level >= level; });
    }

    /// Whether it is time to look for temporary objects whose handles are gone: in a program with its own message loop
    /// there is no idle notification.
    bool isFull() const { return m_temporary.size() >= m_full; }
    void forgetDead()
    {
        drop([](const Temporary& each) { return !alive(*each.object); });
        putOff();
    }
    void putOff() { m_full = std::max<size_t>(kRoom, 2 * m_temporary.size()); }

private:
    struct Temporary {
        std::unique_ptr<Object> object;
        int level = 0;
    };

    template <class Test>
    void drop(Test test)
    {
        for (auto it = m_temporary.begin(); it != m_temporary.end();) {
            if (!test(it->second)) {
                ++it;
                continue;
            }
            hold(*it->second.object, nullptr);
            it = m_temporary.erase(it);
        }
    }

    static constexpr size_t kRoom = 256;
    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, Temporary> m_temporary;
    size_t m_full = kRoom;
};

// Which object stands for a handle, in one thread. A permanent object has entered itself and takes itself out; a
// temporary one belongs to the map, which forgets it when the program is idle.
#pragma once

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

    Object* temporary(Handle handle) const
    {
        const auto it = m_temporary.find(handle);
        return it == m_temporary.end() ? nullptr : it->second.object.get();
    }
    Object* keep(Handle handle, std::unique_ptr<Object> object, int level)
    {
        Temporary& slot = m_temporary[handle];
        slot = {std::move(object), level};
        return slot.object.get();
    }
    /// Drops the temporary objects made at this level of modal loops or deeper; those from before the loop began may
    /// still be held by a function that waits for its end.
    void forget(int level)
    {
        for (auto it = m_temporary.begin(); it != m_temporary.end();) {
            if (it->second.level < level) {
                ++it;
                continue;
            }
            giveUp(*it->second.object); // found by the object's class, see thread_state.h
            it = m_temporary.erase(it);
        }
    }

private:
    struct Temporary {
        std::unique_ptr<Object> object;
        int level = 0;
    };
    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, Temporary> m_temporary;
};

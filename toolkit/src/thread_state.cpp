#include "thread_state.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace
{

// A system slot, not thread_local: it can be cleared while threads that outlive the DLL are running.
struct Threads {
    const DWORD slot = TlsAlloc();
    std::mutex lock;
    std::vector<std::unique_ptr<ThreadState>> states;
};

/// Created at first use: static objects need it early.
Threads& threads()
{
    static Threads it;
    return it;
}

void endThread()
{
    Threads& all = threads();
    const auto state = static_cast<ThreadState*>(TlsGetValue(all.slot));
    if (state == nullptr)
        return;
    TlsSetValue(all.slot, nullptr);
    const std::lock_guard<std::mutex> guard(all.lock);
    std::erase_if(all.states, [state](const auto& each) { return each.get() == state; });
}

/// A message of lowest priority, so the loop has nothing else to do.
void CALLBACK timeToForget(HWND, UINT, UINT_PTR, DWORD)
{
    ThreadState& thread = threadState();
    thread.endTimer();
    // Within a handler or a modal loop somebody may still hold one.
    const bool held = thread.depth > 0 || thread.level > 0;
    const auto look = [held](auto& map) { held ? map.putOff() : map.forgetDead(); };
    std::apply([look](auto&... each) { (look(each), ...); }, thread.maps);
}

} // namespace

void ThreadState::forgetDeadSoon()
{
    if (timer == 0)
        timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, timeToForget);
}

ThreadState& threadState()
{
    Threads& all = threads();
    auto state = static_cast<ThreadState*>(TlsGetValue(all.slot));
    if (state == nullptr) {
        const std::lock_guard<std::mutex> guard(all.lock);
        state = all.states.emplace_back(std::make_unique<ThreadState>()).get();
        TlsSetValue(all.slot, state);
    }
    return *state;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds)
{
    if (reason == DLL_THREAD_DETACH)
        endThread();
    else if (reason == DLL_PROCESS_DETACH && processEnds == nullptr)
        TlsFree(threads().slot);
    return TRUE;
}

#include "thread_state.h"

#include <mutex>
#include <set>

namespace
{

// A slot of the system, not thread_local: it can be emptied while threads live on that the DLL must not outlive.
const DWORD g_slot = TlsAlloc();
std::mutex g_lock;
std::set<std::unique_ptr<ThreadState>> g_states;

void endThread()
{
    const auto state = static_cast<ThreadState*>(TlsGetValue(g_slot));
    if (state == nullptr)
        return;
    const std::lock_guard<std::mutex> guard(g_lock);
    TlsSetValue(g_slot, nullptr);
    for (auto it = g_states.begin(); it != g_states.end(); ++it) {
        if (it->get() == state) {
            g_states.erase(it);
            return;
        }
    }
}

} // namespace

ThreadState& threadState()
{
    auto state = static_cast<ThreadState*>(TlsGetValue(g_slot));
    if (state == nullptr) {
        auto made = std::make_unique<ThreadState>();
        state = made.get();
        const std::lock_guard<std::mutex> guard(g_lock);
        g_states.insert(std::move(made));
        TlsSetValue(g_slot, state);
    }
    return *state;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds)
{
    if (reason == DLL_THREAD_DETACH)
        endThread();
    else if (reason == DLL_PROCESS_DETACH && processEnds == nullptr)
        TlsFree(g_slot);
    return TRUE;
}

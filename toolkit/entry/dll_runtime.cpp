// Frees what the compiler's runtime, which is linked into each DLL here, would leak when the DLL is unloaded: its
// thread library keeps a thread slot, of which a process has about a thousand, and its exception support keeps memory.
#if defined(__MINGW32__)

#include <windows.h>

#include <algorithm>
#include <array>

namespace __gnu_cxx
{
void __freeres();
}

namespace
{

/// The slots that this module has allocated and not freed; a plain array, since it is used before any constructor runs.
struct Slots {
    std::array<DWORD, 8> taken;
    std::size_t count;
} slots;

template <class Function>
Function* ofSystem(const char* name)
{
    const auto address = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

DWORD WINAPI takeSlot()
{
    const DWORD slot = ofSystem<DWORD WINAPI()>("TlsAlloc")();
    if (slot != TLS_OUT_OF_INDEXES && slots.count < slots.taken.size())
        slots.taken[slots.count++] = slot;
    return slot;
}

BOOL WINAPI giveSlotBack(DWORD slot)
{
    const auto end = slots.taken.begin() + slots.count;
    if (const auto found = std::find(slots.taken.begin(), end, slot); found != end)
        *found = slots.taken[--slots.count];
    return ofSystem<BOOL WINAPI(DWORD)>("TlsFree")(slot);
}

/// Constructed first, and so the last of the module's objects to be destroyed.
struct AtTheEnd {
    ~AtTheEnd()
    {
        __gnu_cxx::__freeres();
        while (slots.count > 0)
            giveSlotBack(slots.taken[slots.count - 1]);
    }
} atTheEnd __attribute__((init_priority(101)));

} // namespace

/// The runtime calls through these; defined here, they replace those of the system's import library.
extern "C" {
extern DWORD(WINAPI* const __imp_TlsAlloc)();
extern BOOL(WINAPI* const __imp_TlsFree)(DWORD);
DWORD(WINAPI* const __imp_TlsAlloc)() = takeSlot;
BOOL(WINAPI* const __imp_TlsFree)(DWORD) = giveSlotBack;
}

#endif

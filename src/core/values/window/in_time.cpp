#include "core/values/window/in_time.h"

#include <memory>
#include <utility>

namespace VEK
{

namespace
{

/// What both threads own: the caller may have given up when the job ends.
struct Errand {
    std::function<void()> job;
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HMODULE module = nullptr; ///< held while the code runs

    Errand() = default;
    Errand(const Errand&) = delete;
    Errand& operator=(const Errand&) = delete;
    ~Errand() { CloseHandle(done); }
};

using SharedErrand = std::shared_ptr<Errand>;

void CALLBACK run(PTP_CALLBACK_INSTANCE instance, void* context)
{
    const std::unique_ptr<SharedErrand> own(static_cast<SharedErrand*>(context));
    Errand& errand = **own;
    FreeLibraryWhenCallbackReturns(instance, errand.module);
    CallbackMayRunLong(instance);
    const bool isReady = SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    errand.job();
    errand.job = nullptr; // with the interfaces that it owns, as long as there is COM
    if (isReady)
        CoUninitialize();
    SetEvent(errand.done);
}

} // namespace

CMarshalled::CMarshalled(IUnknown* object, REFIID id) : m_id(id)
{
    if (FAILED(CoMarshalInterThreadInterfaceInStream(id, object, &m_stream)))
        m_stream = nullptr;
}

CMarshalled::CMarshalled(CMarshalled&& other) noexcept
    : m_stream(std::exchange(other.m_stream, nullptr)), m_id(other.m_id)
{
}

CMarshalled& CMarshalled::operator=(CMarshalled&& other) noexcept
{
    std::swap(m_stream, other.m_stream);
    std::swap(m_id, other.m_id);
    return *this;
}

CMarshalled::~CMarshalled()
{
    if (void* object = take())
        static_cast<IUnknown*>(object)->Release();
}

void* CMarshalled::take()
{
    void* object = nullptr;
    IStream* stream = std::exchange(m_stream, nullptr);
    return stream != nullptr && SUCCEEDED(CoGetInterfaceAndReleaseStream(stream, m_id, &object)) ? object : nullptr;
}

bool inTime(unsigned long milliseconds, std::function<void()> job)
{
    const auto errand = std::make_shared<Errand>();
    errand->job = std::move(job);
    auto own = std::make_unique<SharedErrand>(errand);
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;
    if (errand->done == nullptr ||
        !GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(reinterpret_cast<void*>(&run)), &errand->module))
        return false;
    if (!TrySubmitThreadpoolCallback(run, own.get(), nullptr)) {
        FreeLibrary(errand->module);
        return false;
    }
    own.release();
    DWORD which = 0;
    return SUCCEEDED(CoWaitForMultipleHandles(COWAIT_DEFAULT, milliseconds, 1, &errand->done, &which));
}

} // namespace VEK

#include "dialogframe/window/rsc_app.h"

#include <vek/dialogframe/window/msg_dlg.h>
#include <vek/values/system.h>

#include <utility>

namespace VEK
{

namespace
{

constexpr wchar_t kProgId[] = L"Vek_Msg.App";
constexpr int kTries = 40;
constexpr unsigned long kPause = 500; // milliseconds
constexpr ULONGLONG kLongest = 30000; // for a server that runs but does not answer

std::function<void(unsigned long)>& waitHook()
{
    static std::function<void(unsigned long)> hook;
    return hook;
}

void pause()
{
    if (waitHook())
        waitHook()(kPause);
    else
        Sleep(kPause);
}

/// Gives up this function's reference to a running application, whose own keep it alive. In another process that is
/// true only of the object and not of its proxy here, to which the pointer points: that keeps one reference until the
/// next connection.
void giveUp(IDispatch* application)
{
    static IDispatch* kept = nullptr;
    void* proxy = nullptr;
    const bool isProxy = SUCCEEDED(application->QueryInterface(IID_IClientSecurity, &proxy));
    if (isProxy)
        static_cast<IUnknown*>(proxy)->Release();
    if (IDispatch* before = std::exchange(kept, isProxy ? application : nullptr))
        before->Release();
    if (!isProxy)
        application->Release();
}

} // namespace

std::function<void(unsigned long)> rscWaitHookSet(std::function<void(unsigned long)> hook)
{
    return std::exchange(waitHook(), std::move(hook));
}

IDispatch* getRscAppDispatch()
{
    IDispatch* application = nullptr;
    CVekString program;
    if (!dispatchFromProgID(kProgId, &application) && serverFromProgID(kProgId, program)) {
        const CWaitCursor wait;
        const ULONGLONG begin = GetTickCount64();
        execute(program, 0, true);
        for (int i = 0; i < kTries && !application && GetTickCount64() - begin < kLongest; ++i) {
            pause();
            dispatchFromProgID(kProgId, &application);
        }
    }
    if (application)
        giveUp(application);
    return application;
}

} // namespace VEK

// Calls of the text application. One that hangs would hold the caller, so each call is made by a thread of the system's
// pool, and the caller waits for a limited time.
#include <vek/dialogframe/window/msg_dlg.h>

#include "core/values/whole.h"

#include <memory>
#include <string>

namespace
{

unsigned long deadline = 20000;

struct Call {
    DISPID id = 0;
    WORD kind = DISPATCH_METHOD;
    VARTYPE type = VT_EMPTY; ///< of the answer
    int count = 0;           ///< of the parameters that are texts
    std::wstring first, second;
    int flag = 0; ///< value to set of a property that is no text

    bool good = false;
    std::wstring text;
    BOOL isSet = FALSE;

    void make(COleDispatchDriver& application);
};

void Call::make(COleDispatchDriver& application)
{
    static const BYTE kTexts[] = VTS_BSTR VTS_BSTR;
    try {
        CString answer;
        void* target = type == VT_BSTR ? static_cast<void*>(&answer) : &isSet;
        if (kind != DISPATCH_PROPERTYPUT)
            application.InvokeHelper(id, kind, type, target, kTexts + 2 - count, first.c_str(), second.c_str());
        else if (count > 0)
            application.SetProperty(id, VT_BSTR, first.c_str());
        else
            application.SetProperty(id, VT_BOOL, flag);
        text = static_cast<LPCWSTR>(answer);
        good = true;
    } catch (CException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
    }
}

/// A call on its way to the other thread. Both threads own it: the caller may have given up when the answer comes.
struct Errand {
    Call call;
    IStream* application = nullptr; ///< marshalled
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HMODULE module = nullptr; ///< held while the code runs

    Errand() = default;
    Errand(const Errand&) = delete;
    Errand& operator=(const Errand&) = delete;
    ~Errand() { CloseHandle(done); }

    IDispatch* unmarshal()
    {
        void* object = nullptr;
        IStream* stream = std::exchange(application, nullptr);
        return SUCCEEDED(CoGetInterfaceAndReleaseStream(stream, IID_IDispatch, &object))
                   ? static_cast<IDispatch*>(object)
                   : nullptr;
    }
};

using SharedErrand = std::shared_ptr<Errand>;

void CALLBACK run(PTP_CALLBACK_INSTANCE instance, void* context)
{
    const std::unique_ptr<SharedErrand> own(static_cast<SharedErrand*>(context));
    Errand& errand = **own;
    FreeLibraryWhenCallbackReturns(instance, errand.module);
    CallbackMayRunLong(instance);
    const bool isReady = SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    if (IDispatch* object = errand.unmarshal()) {
        COleDispatchDriver application(object);
        errand.call.make(application);
    }
    if (isReady)
        CoUninitialize();
    SetEvent(errand.done);
}

/// @return false if no other thread can do it
bool send(const SharedErrand& errand)
{
    auto own = std::make_unique<SharedErrand>(errand);
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;
    if (GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&run), &errand->module)) {
        if (TrySubmitThreadpoolCallback(run, own.get(), nullptr)) {
            own.release();
            return true;
        }
        FreeLibrary(errand->module);
    }
    if (IDispatch* object = errand->unmarshal())
        object->Release();
    return false;
}

bool perform(COleDispatchDriver& client, const SharedErrand& errand)
{
    if (client.m_lpDispatch == nullptr || errand->done == nullptr)
        return false;
    if (FAILED(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, client.m_lpDispatch, &errand->application))) {
        errand->call.make(client); // an object of this process in a thread without COM, or one that is gone
        return errand->call.good;
    }
    if (!send(errand))
        return false;
    DWORD which = 0;
    if (SUCCEEDED(CoWaitForMultipleHandles(COWAIT_DEFAULT, deadline, 1, &errand->done, &which)))
        return errand->call.good;
    client.DetachDispatch(); // not released: an application that does not answer does not answer that either
    return false;
}

/// Makes a call; one that fails leaves the answer empty.
Call made(COleDispatchDriver& client, Call call)
{
    return VEK::whole(Call(), [&] {
        const auto errand = std::make_shared<Errand>();
        errand->call = std::move(call);
        return perform(client, errand) ? errand->call : Call();
    });
}

std::wstring textOf(LPCTSTR text)
{
    return text == nullptr ? std::wstring() : text;
}

/// A method whose parameters are texts.
Call method(COleDispatchDriver& client, DISPID id, VARTYPE type, int count, LPCTSTR first = nullptr,
            LPCTSTR second = nullptr)
{
    return VEK::whole(Call(), [&] {
        return made(client, {.id = id, .type = type, .count = count, .first = textOf(first), .second = textOf(second)});
    });
}

} // namespace

IVekMsgDlg& IVekMsgDlg::operator=(const IVekMsgDlg& other)
{
    COleDispatchDriver::operator=(other);
    return *this;
}

CString IVekMsgDlg::GetSelectedKey()
{
    return method(*this, 1, VT_BSTR, 0).text.c_str();
}

BOOL IVekMsgDlg::OpenFile(LPCTSTR file)
{
    return method(*this, 2, VT_BOOL, 1, file).isSet;
}

BOOL IVekMsgDlg::SearchKey(LPCTSTR key)
{
    return method(*this, 3, VT_BOOL, 1, key).isSet;
}

CString IVekMsgDlg::GetMsg(LPCTSTR key, LPCTSTR language)
{
    return method(*this, 4, VT_BSTR, 2, key, language).text.c_str();
}

CString IVekMsgDlg::wGetMsg(LPCTSTR key, LPCTSTR language)
{
    return method(*this, 5, VT_BSTR, 2, key, language).text.c_str();
}

void IVekMsgDlg::Close()
{
    method(*this, 6, VT_EMPTY, 0);
}

int IVekMsgDlg::GetVisible()
{
    return made(*this, {.id = 7, .kind = DISPATCH_PROPERTYGET, .type = VT_BOOL}).isSet;
}

void IVekMsgDlg::SetVisible(int visible)
{
    made(*this, {.id = 7, .kind = DISPATCH_PROPERTYPUT, .flag = visible});
}

CString IVekMsgDlg::GetCountry()
{
    return made(*this, {.id = 8, .kind = DISPATCH_PROPERTYGET, .type = VT_BSTR}).text.c_str();
}

void IVekMsgDlg::SetCountry(LPCTSTR language)
{
    VEK::whole(Call(), [&] {
        return made(*this, {.id = 8, .kind = DISPATCH_PROPERTYPUT, .count = 1, .first = textOf(language)});
    });
}

unsigned long VEK::rscCallDeadlineSet(unsigned long milliseconds)
{
    return std::exchange(deadline, milliseconds);
}

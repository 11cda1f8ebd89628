#include <vek/dialogframe/window/msg_dlg.h>

#include "core/values/whole.h"
#include "core/values/window/in_time.h"

#include <algorithm>
#include <memory>
#include <string>

namespace
{

unsigned long deadline = 20000;

/// A call. Both threads that have to do with it own it: the caller may have given up when the answer comes.
struct Call {
    DISPID id = 0;
    WORD kind = DISPATCH_METHOD;
    VARTYPE type = VT_EMPTY; ///< of the answer
    int count = 0;           ///< of the parameters that are texts
    std::wstring first = {}, second = {};
    int flag = 0; ///< value to set of a property that is no text

    bool good = false;
    bool isGone = false; ///< whether nobody was there to answer
    std::wstring text = {};
    BOOL isSet = FALSE;

    void make(COleDispatchDriver& application);
};

/// Whether a failure is that of the connection and not of the method.
bool meansGone(SCODE failure)
{
    constexpr HRESULT kinds[] = {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE),
                                 HRESULT_FROM_WIN32(RPC_S_CALL_FAILED),
                                 HRESULT_FROM_WIN32(RPC_S_CALL_FAILED_DNE),
                                 RPC_E_DISCONNECTED,
                                 RPC_E_SERVER_DIED,
                                 RPC_E_SERVER_DIED_DNE,
                                 CO_E_OBJNOTCONNECTED};
    return std::find(std::begin(kinds), std::end(kinds), failure) != std::end(kinds);
}

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
    } catch (COleException* exception) {
        isGone = meansGone(exception->m_sc);
        exception->Delete();
    } catch (CException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
    }
}

bool perform(COleDispatchDriver& client, const std::shared_ptr<Call>& call)
{
    if (client.m_lpDispatch == nullptr)
        return false;
    const auto object = std::make_shared<VEK::CMarshalled>(client.m_lpDispatch, IID_IDispatch);
    bool answers = true;
    if (!*object) { // an object of this process in a thread without COM, or one that is gone
        call->make(client);
    } else {
        answers = VEK::inTime(deadline, [call, object] {
            COleDispatchDriver application(static_cast<IDispatch*>(object->take()));
            if (application.m_lpDispatch)
                call->make(application);
            else
                call->isGone = true;
        });
    }
    if (!answers)
        client.DetachDispatch(); // not released: an application that does not answer does not answer that either
    else if (call->isGone)
        client.ReleaseDispatch();
    return answers && call->good;
}

/// Makes a call; one that fails leaves the answer empty.
Call made(COleDispatchDriver& client, Call call)
{
    return VEK::whole(Call(), [&] {
        const auto shared = std::make_shared<Call>(std::move(call));
        return perform(client, shared) ? *shared : Call();
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

#include "server.h"

#include <new>
#include <string>

namespace
{

/// A member, as clients call it.
struct Member {
    DISPID id;
    const wchar_t* name;
    int count;    ///< of the parameters of a method, all of them texts
    VARTYPE type; ///< of a property; VT_EMPTY for a method
};

// In milliseconds.
constexpr UINT kFirstClient = 60000;   // until the first client must have come
constexpr ULONGLONG kAccepted = 15000; // until the system must have accepted the server; clients wait somewhat longer
constexpr DWORD kPause = 250;

MsgServer* theServer = nullptr;

constexpr DISPID kSelectedKey = 1, kOpenFile = 2, kSearchKey = 3, kText = 4, kWideText = 5, kClose = 6, kVisible = 7,
                 kCountry = 8;

constexpr Member kMembers[] = {
    {kSelectedKey, L"GetSelectedKey", 0, VT_EMPTY},
    {kOpenFile, L"OpenFile", 1, VT_EMPTY},
    {kSearchKey, L"SearchKey", 1, VT_EMPTY},
    {kText, L"GetMsg", 2, VT_EMPTY},
    {kWideText, L"wGetMsg", 2, VT_EMPTY},
    {kClose, L"Close", 0, VT_EMPTY},
    {kVisible, L"Visible", 0, VT_BOOL},
    {kCountry, L"Country", 0, VT_BSTR},
};

/// A value converted to another type, and freed at the end.
struct Value {
    VARIANT it;
    HRESULT status;

    Value(const VARIANT& from, VARTYPE type)
    {
        VariantInit(&it);
        status = VariantChangeType(&it, const_cast<VARIANT*>(&from), 0, type);
    }
    ~Value() { VariantClear(&it); }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;

    std::wstring text() const { return it.bstrVal == nullptr ? std::wstring() : it.bstrVal; }
};

void put(VARIANT* result, const std::wstring& text)
{
    if (result == nullptr)
        return;
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (result->bstrVal == nullptr)
        throw std::bad_alloc();
}

void put(VARIANT* result, bool isSet)
{
    if (result == nullptr)
        return;
    result->vt = VT_BOOL;
    result->boolVal = isSet ? VARIANT_TRUE : VARIANT_FALSE;
}

void callMethod(MsgWindow& window, DISPID id, const std::wstring (&given)[2], VARIANT* result)
{
    const TextCatalogue& texts = window.texts();
    CVekString problem;
    switch (id) {
    case kSelectedKey: put(result, window.selectedKey()); break;
    case kOpenFile: put(result, window.openFile(given[0].c_str(), problem)); break;
    case kSearchKey: put(result, window.selectKey(given[0])); break;
    case kText: put(result, escaped(texts.text(given[0], given[1]))); break;
    case kWideText: put(result, given[1] == L"0" ? texts.attributes(given[0]) : texts.text(given[0], given[1])); break;
    default: window.PostMessage(WM_CLOSE); // after the answer
    }
}

} // namespace

MsgServer::MsgServer(MsgWindow& window) : m_window(window)
{
    theServer = this;
}

MsgServer::~MsgServer()
{
    theServer = nullptr;
    leave();
    if (m_class != 0)
        CoRevokeClassObject(m_class);
    CoDisconnectObject(static_cast<IDispatch*>(this), 0);
}

bool MsgServer::start(bool hasUser)
{
    if (hasUser)
        m_window.showToUser(true);
    else
        SetTimer(nullptr, 0, kFirstClient, onTimer);
    // A system that is just starting refuses servers until its own services run.
    const CWaitCursor wait;
    const ULONGLONG begin = GetTickCount64();
    while (!enter(hasUser) ||
           FAILED(CoRegisterClassObject(kMsgClass, &m_factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &m_class))) {
        if (GetTickCount64() - begin > kAccepted)
            return false;
        Sleep(kPause);
    }
    return true;
}

void MsgServer::onTimer(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    if (theServer != nullptr)
        theServer->endIfUnused();
}

/// Enters the object in the running object table, in place of its present entry. A strong entry counts as a client.
bool MsgServer::enter(bool isStrong)
{
    DWORD entry = 0;
    const DWORD kind = isStrong ? ACTIVEOBJECT_STRONG : ACTIVEOBJECT_WEAK;
    const HRESULT status = RegisterActiveObject(static_cast<IDispatch*>(this), kMsgClass, kind, &entry);
    leave();
    m_entry = SUCCEEDED(status) ? entry : 0;
    return SUCCEEDED(status);
}

void MsgServer::leave()
{
    if (m_entry != 0)
        RevokeActiveObject(std::exchange(m_entry, 0), nullptr);
}

void MsgServer::show(bool isShown)
{
    m_window.showToUser(isShown);
    enter(isShown);
}

void MsgServer::endIfUnused()
{
    if (m_clients == 0 && m_locks == 0 && !m_window.IsWindowVisible())
        m_window.PostMessage(WM_CLOSE);
}

HRESULT MsgServer::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch))
        *object = static_cast<IDispatch*>(this);
    else if (IsEqualIID(id, IID_IExternalConnection))
        *object = static_cast<IExternalConnection*>(this);
    return *object == nullptr ? E_NOINTERFACE : S_OK;
}

HRESULT MsgServer::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT MsgServer::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT MsgServer::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (const Member& member : kMembers) {
        if (count > 0 && lstrcmpiW(names[0], member.name) == 0)
            ids[0] = member.id;
    }
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT MsgServer::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result, EXCEPINFO*,
                          UINT* wrong)
try {
    if (id < 1 || id > static_cast<DISPID>(std::size(kMembers)))
        return DISP_E_MEMBERNOTFOUND;
    const Member& member = kMembers[id - 1];
    const bool isMethod = member.type == VT_EMPTY;
    const bool isSetting = (kind & DISPATCH_PROPERTYPUT) != 0;
    const bool isAsking = !isSetting && (kind & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) != 0;
    if (isMethod ? (kind & DISPATCH_METHOD) == 0 : !isSetting && !isAsking)
        return DISP_E_MEMBERNOTFOUND;
    const UINT count = !isMethod && isSetting ? 1 : static_cast<UINT>(member.count);
    const VARTYPE type = isMethod ? VARTYPE{VT_BSTR} : member.type; // of the parameters
    if (given->cArgs != count)
        return DISP_E_BADPARAMCOUNT;
    std::wstring texts[2];
    bool isSet = false;
    for (UINT i = 0; i < count; ++i) { // they come in reverse order
        const Value value(given->rgvarg[count - 1 - i], type);
        if (FAILED(value.status)) {
            if (wrong != nullptr)
                *wrong = count - 1 - i;
            return value.status;
        }
        isSet = value.it.vt == VT_BOOL && value.it.boolVal != VARIANT_FALSE;
        texts[i] = value.it.vt == VT_BSTR ? value.text() : L"";
    }
    if (isMethod)
        callMethod(m_window, id, texts, result);
    else if (id == kVisible && isSetting)
        show(isSet);
    else if (id == kVisible)
        put(result, m_window.IsWindowVisible() != FALSE);
    else if (isSetting)
        m_window.setLanguage(texts[0]);
    else
        put(result, m_window.language());
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (const std::length_error&) {
    return E_OUTOFMEMORY;
}

DWORD MsgServer::AddConnection(DWORD kind, DWORD)
{
    if ((kind & EXTCONN_STRONG) != 0)
        ++m_clients;
    return m_clients;
}

DWORD MsgServer::ReleaseConnection(DWORD kind, DWORD, BOOL)
{
    if ((kind & EXTCONN_STRONG) != 0 && m_clients > 0)
        --m_clients;
    endIfUnused();
    return m_clients;
}

HRESULT MsgServer::Factory::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *object = isKnown ? static_cast<IClassFactory*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
}

HRESULT MsgServer::Factory::CreateInstance(IUnknown* outer, REFIID id, void** object)
{
    return outer != nullptr ? CLASS_E_NOAGGREGATION : m_server.QueryInterface(id, object);
}

HRESULT MsgServer::Factory::LockServer(BOOL isLocked)
{
    if (isLocked) {
        ++m_server.m_locks;
    } else {
        m_server.m_locks -= m_server.m_locks > 0;
        m_server.endIfUnused();
    }
    return S_OK;
}

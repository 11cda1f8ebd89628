#include <afxdisp.h>

#include <utility>
#include <vector>

IMPLEMENT_DYNAMIC(COleException, CException)
IMPLEMENT_DYNAMIC(COleDispatchException, COleException)

BOOL COleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT*) const
{
    return ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                            static_cast<DWORD>(m_sc), 0, lpszError, nMaxError, nullptr) != 0;
}

BOOL COleDispatchException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) const
{
    if (m_strDescription.IsEmpty())
        return COleException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
    lstrcpynW(lpszError, m_strDescription, static_cast<int>(nMaxError));
    return TRUE;
}

BOOL AFXAPI AfxOleInit()
{
    return SUCCEEDED(::OleInitialize(nullptr));
}

COleDispatchDriver::COleDispatchDriver(const COleDispatchDriver& dispatchSrc) : m_lpDispatch(dispatchSrc.m_lpDispatch)
{
    if (m_lpDispatch != nullptr)
        m_lpDispatch->AddRef();
}

const COleDispatchDriver& COleDispatchDriver::operator=(const COleDispatchDriver& dispatchSrc)
{
    if (dispatchSrc.m_lpDispatch != nullptr)
        dispatchSrc.m_lpDispatch->AddRef();
    AttachDispatch(dispatchSrc.m_lpDispatch, TRUE);
    return *this;
}

COleDispatchDriver::~COleDispatchDriver()
{
    if (m_bAutoRelease)
        ReleaseDispatch();
}

BOOL COleDispatchDriver::CreateDispatch(REFCLSID clsid, COleException* pError)
{
    IDispatch* made = nullptr;
    const HRESULT status =
        ::CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IID_IDispatch, reinterpret_cast<void**>(&made));
    if (FAILED(status)) {
        if (pError != nullptr)
            pError->m_sc = status;
        return FALSE;
    }
    AttachDispatch(made, TRUE);
    return TRUE;
}

BOOL COleDispatchDriver::CreateDispatch(LPCTSTR lpszProgID, COleException* pError)
{
    CLSID id;
    const HRESULT status = ::CLSIDFromProgID(lpszProgID, &id);
    if (SUCCEEDED(status))
        return CreateDispatch(id, pError);
    if (pError != nullptr)
        pError->m_sc = status;
    return FALSE;
}

void COleDispatchDriver::AttachDispatch(LPDISPATCH lpDispatch, BOOL bAutoRelease)
{
    if (m_bAutoRelease)
        ReleaseDispatch();
    m_lpDispatch = lpDispatch;
    m_bAutoRelease = bAutoRelease;
}

LPDISPATCH COleDispatchDriver::DetachDispatch()
{
    return std::exchange(m_lpDispatch, nullptr);
}

void COleDispatchDriver::ReleaseDispatch()
{
    if (m_lpDispatch != nullptr)
        std::exchange(m_lpDispatch, nullptr)->Release();
}

namespace
{

constexpr BYTE kByReference = 0x40;

/// Owned variants, which free the texts made for the call.
class Variants
{
public:
    explicit Variants(size_t count) : m_list(count)
    {
        for (VARIANT& each : m_list)
            ::VariantInit(&each);
    }
    ~Variants()
    {
        for (VARIANT& each : m_list) {
            if (each.vt == VT_BSTR) // all others belong to the caller
                ::SysFreeString(each.bstrVal);
        }
    }
    Variants(const Variants&) = delete;
    Variants& operator=(const Variants&) = delete;

    VARIANT& operator[](size_t i) { return m_list[i]; }
    VARIANT* data() { return m_list.data(); }

private:
    std::vector<VARIANT> m_list;
};

} // namespace

void COleDispatchDriver::InvokeHelperV(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet,
                                       const BYTE* pbParamInfo, va_list argList)
{
    if (m_lpDispatch == nullptr)
        AfxThrowOleException(E_POINTER);
    const size_t count = pbParamInfo == nullptr ? 0 : strlen(reinterpret_cast<const char*>(pbParamInfo));
    Variants parameters(count);
    for (size_t i = 0; i < count; ++i) {
        VARIANT& it = parameters[count - 1 - i]; // in reverse order
        const BYTE kind = pbParamInfo[i];
        if ((kind & kByReference) != 0) {
            it.vt = static_cast<VARTYPE>((kind & ~kByReference) | VT_BYREF);
            it.byref = va_arg(argList, void*);
            continue;
        }
        it.vt = kind;
        switch (kind) {
        case VT_I2: it.iVal = static_cast<short>(va_arg(argList, int)); break;
        case VT_I4:
        case VT_ERROR: it.lVal = va_arg(argList, long); break;
        case VT_BOOL: it.boolVal = va_arg(argList, BOOL) ? VARIANT_TRUE : VARIANT_FALSE; break;
        case VT_R4: it.fltVal = static_cast<float>(va_arg(argList, double)); break;
        case VT_R8:
        case VT_DATE: it.dblVal = va_arg(argList, double); break;
        case VT_BSTR: it.bstrVal = ::SysAllocString(va_arg(argList, LPCOLESTR)); break;
        case VT_DISPATCH: it.pdispVal = va_arg(argList, LPDISPATCH); break;
        case VT_UNKNOWN: it.punkVal = va_arg(argList, LPUNKNOWN); break;
        case VT_VARIANT:
            it.vt = VT_VARIANT | VT_BYREF;
            it.pvarVal = va_arg(argList, VARIANT*);
            break;
        default: AfxThrowOleException(DISP_E_BADVARTYPE);
        }
    }
    DISPPARAMS call = {parameters.data(), nullptr, static_cast<UINT>(count), 0};
    DISPID put = DISPID_PROPERTYPUT;
    if ((wFlags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        call.rgdispidNamedArgs = &put;
        call.cNamedArgs = 1;
    }
    VARIANT result;
    ::VariantInit(&result);
    EXCEPINFO failure = {};
    UINT wrong = 0;
    HRESULT status = m_lpDispatch->Invoke(dwDispID, IID_NULL, LOCALE_USER_DEFAULT, wFlags, &call,
                                          vtRet == VT_EMPTY ? nullptr : &result, &failure, &wrong);
    if (status == DISP_E_EXCEPTION) {
        if (failure.pfnDeferredFillIn != nullptr)
            failure.pfnDeferredFillIn(&failure);
        auto* exception = new COleDispatchException;
        exception->m_sc = failure.scode != 0 ? failure.scode : status;
        exception->m_wCode = failure.wCode;
        exception->m_strDescription = failure.bstrDescription;
        exception->m_strSource = failure.bstrSource;
        ::SysFreeString(failure.bstrDescription);
        ::SysFreeString(failure.bstrSource);
        ::SysFreeString(failure.bstrHelpFile);
        throw exception;
    }
    if (SUCCEEDED(status) && vtRet != VT_EMPTY && vtRet != VT_VARIANT)
        status = ::VariantChangeType(&result, &result, 0, vtRet);
    if (FAILED(status)) {
        ::VariantClear(&result);
        AfxThrowOleException(status);
    }
    switch (vtRet) {
    case VT_EMPTY: break;
    case VT_I2: *static_cast<short*>(pvRet) = result.iVal; break;
    case VT_I4:
    case VT_ERROR: *static_cast<long*>(pvRet) = result.lVal; break;
    case VT_UI1: *static_cast<BYTE*>(pvRet) = result.bVal; break;
    case VT_BOOL: *static_cast<BOOL*>(pvRet) = result.boolVal != VARIANT_FALSE; break;
    case VT_R4: *static_cast<float*>(pvRet) = result.fltVal; break;
    case VT_R8:
    case VT_DATE: *static_cast<double*>(pvRet) = result.dblVal; break;
    case VT_BSTR:
        *static_cast<CString*>(pvRet) = result.bstrVal;
        ::SysFreeString(result.bstrVal);
        break;
    case VT_DISPATCH: *static_cast<LPDISPATCH*>(pvRet) = result.pdispVal; break;
    case VT_UNKNOWN: *static_cast<LPUNKNOWN*>(pvRet) = result.punkVal; break;
    case VT_VARIANT: *static_cast<VARIANT*>(pvRet) = result; break;
    default: ::VariantClear(&result); AfxThrowOleException(DISP_E_BADVARTYPE);
    }
}

namespace
{

/// Calls va_end however the call ends.
struct Arguments {
    ~Arguments() { va_end(list); }
    va_list list;
};

} // namespace

void AFX_CDECL COleDispatchDriver::InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet,
                                                const BYTE* pbParamInfo, ...)
{
    Arguments arguments;
    va_start(arguments.list, pbParamInfo);
    InvokeHelperV(dwDispID, wFlags, vtRet, pvRet, pbParamInfo, arguments.list);
}

void COleDispatchDriver::GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const
{
    COleDispatchDriver(m_lpDispatch, FALSE).InvokeHelper(dwDispID, DISPATCH_PROPERTYGET, vtProp, pvProp, nullptr);
}

void AFX_CDECL COleDispatchDriver::SetProperty(DISPID dwDispID, VARTYPE vtProp, ...)
{
    const BYTE kind[] = {static_cast<BYTE>(vtProp), 0};
    Arguments arguments;
    va_start(arguments.list, vtProp);
    InvokeHelperV(dwDispID, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, kind, arguments.list);
}

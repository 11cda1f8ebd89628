/// @file
/// Automation: calling other programs' objects.
#pragma once

#include <afxwin.h>

#include <ole2.h>

class AFX_EXPORTED COleException : public CException
{
    DECLARE_DYNAMIC(COleException)

public:
    SCODE m_sc = S_OK;

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

/// What an object's own failure brings.
class AFX_EXPORTED COleDispatchException : public COleException
{
    DECLARE_DYNAMIC(COleDispatchException)

public:
    WORD m_wCode = 0;
    CString m_strDescription;
    CString m_strSource;

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

[[noreturn]] inline void AFXAPI AfxThrowOleException(SCODE sc)
{
    auto* exception = new COleException;
    exception->m_sc = sc;
    throw exception;
}

/// Starts OLE for the thread; it ends with the process.
AFX_EXPORTED BOOL AFXAPI AfxOleInit();

/// @name Kinds of parameters
/// Written one after the other, as in VTS_BSTR VTS_I4. An integer, truth value or number is passed as itself, a BSTR as
/// wide text, a VARIANT by pointer; the forms with P take a pointer that the object writes to.
/// @{
#define VTS_NONE nullptr
#define VTS_I2 "\x02"
#define VTS_I4 "\x03"
#define VTS_R4 "\x04"
#define VTS_R8 "\x05"
#define VTS_DATE "\x07"
#define VTS_BSTR "\x08"
#define VTS_DISPATCH "\x09"
#define VTS_SCODE "\x0A"
#define VTS_BOOL "\x0B"
#define VTS_VARIANT "\x0C"
#define VTS_UNKNOWN "\x0D"
#define VTS_PI2 "\x42"
#define VTS_PI4 "\x43"
#define VTS_PR4 "\x44"
#define VTS_PR8 "\x45"
#define VTS_PBSTR "\x48"
#define VTS_PDISPATCH "\x49"
#define VTS_PBOOL "\x4B"
#define VTS_PVARIANT "\x4C"
/// @}

/// A client of an automation object. It releases the object at its end, unless told otherwise.
class AFX_EXPORTED COleDispatchDriver
{
public:
    COleDispatchDriver() = default;
    /// Takes the caller's reference over when it releases by itself.
    explicit COleDispatchDriver(LPDISPATCH lpDispatch, BOOL bAutoRelease = TRUE)
        : m_lpDispatch(lpDispatch), m_bAutoRelease(bAutoRelease)
    {
    }
    COleDispatchDriver(const COleDispatchDriver& dispatchSrc);
    const COleDispatchDriver& operator=(const COleDispatchDriver& dispatchSrc);
    ~COleDispatchDriver();

    LPDISPATCH m_lpDispatch = nullptr;
    BOOL m_bAutoRelease = TRUE;

    operator LPDISPATCH() const { return m_lpDispatch; }
    /// False when the class is not known or no object could be made; the exception, when given, gets the cause.
    BOOL CreateDispatch(REFCLSID clsid, COleException* pError = nullptr);
    BOOL CreateDispatch(LPCTSTR lpszProgID, COleException* pError = nullptr);
    void AttachDispatch(LPDISPATCH lpDispatch, BOOL bAutoRelease = TRUE);
    LPDISPATCH DetachDispatch();
    void ReleaseDispatch();

    /// Calls a method or property. The result goes to `pvRet` in the type told by `vtRet`: CString for VT_BSTR, BOOL
    /// for VT_BOOL, VARIANT for VT_VARIANT; VT_EMPTY wants none. Throws COleDispatchException for a failure that the
    /// object tells of, COleException for others.
    void AFX_CDECL InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo, ...);
    void InvokeHelperV(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo,
                       va_list argList);
    void GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const;
    void AFX_CDECL SetProperty(DISPID dwDispID, VARTYPE vtProp, ...);
};

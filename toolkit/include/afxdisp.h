/// @file
/// Automation: calling objects of other programs.
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

/// The failure that an object reported.
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

/// Initialises OLE for the thread, until the process ends.
AFX_EXPORTED BOOL AFXAPI AfxOleInit();

/// @name Kinds of parameters
/// Written one after the other, as in VTS_BSTR VTS_I4. An integer, BOOL or number is passed by value, a BSTR as wide
/// text, a VARIANT by pointer; the forms with P take a pointer to which the object writes.
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

/// A client of an automation object. Its destructor releases the object unless auto-release is off.
class AFX_EXPORTED COleDispatchDriver
{
public:
    COleDispatchDriver() = default;
    /// Takes ownership of the caller's reference if auto-release is on.
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
    /// False if the class is unknown or no object could be created; the exception, if given, gets the cause.
    BOOL CreateDispatch(REFCLSID clsid, COleException* pError = nullptr);
    BOOL CreateDispatch(LPCTSTR lpszProgID, COleException* pError = nullptr);
    void AttachDispatch(LPDISPATCH lpDispatch, BOOL bAutoRelease = TRUE);
    LPDISPATCH DetachDispatch();
    void ReleaseDispatch();

    /// Calls a method or property. The result goes to `pvRet` in the type given by `vtRet`: CString for VT_BSTR, BOOL
    /// for VT_BOOL, VARIANT for VT_VARIANT; VT_EMPTY for none. Throws COleDispatchException for a failure that the
    /// object reports, COleException for others.
    void AFX_CDECL InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo, ...);
    void InvokeHelperV(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo,
                       va_list argList);
    void GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const;
    void AFX_CDECL SetProperty(DISPID dwDispID, VARTYPE vtProp, ...);
};

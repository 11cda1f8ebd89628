/// @file
/// Exceptions of the toolkit are thrown by pointer; the catcher must call Delete. None leaves a window procedure.
#pragma once

#include <toolkit/object.h>
#include <toolkit/string.h>

#include <exception>

class AFX_EXPORTED CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    CException() = default;

    void Delete() { delete this; }
    /// The text for the user, cut to the given size; false and empty if there is none.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
    /// Shows the text, or if there is none that of the resource, in a message box.
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
};

class AFX_EXPORTED CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
};

class AFX_EXPORTED CNotSupportedException : public CException
{
    DECLARE_DYNAMIC(CNotSupportedException)
};

class AFX_EXPORTED CResourceException : public CException
{
    DECLARE_DYNAMIC(CResourceException)
};

/// Thrown when the user has been informed already, for example of an invalid value in a field.
class AFX_EXPORTED CUserException : public CException
{
    DECLARE_DYNAMIC(CUserException)
};

/// @name Throwing
/// Inline, so that the caller's module throws.
/// @{
[[noreturn]] inline void AFXAPI AfxThrowMemoryException()
{
    throw new CMemoryException;
}
[[noreturn]] inline void AFXAPI AfxThrowNotSupportedException()
{
    throw new CNotSupportedException;
}
[[noreturn]] inline void AFXAPI AfxThrowResourceException()
{
    throw new CResourceException;
}
[[noreturn]] inline void AFXAPI AfxThrowUserException()
{
    throw new CUserException;
}
/// @}

/// Runs a call and catches its exception: `failed` gets it, null for one that is not the toolkit's. Each module has its
/// own copy of this function, since an exception is best caught by the run-time library that threw it.
using AFX_GUARD = void (*)(void (*call)(void*), void (*failed)(void*, CException*), void* context);
inline void AfxRunGuarded(void (*call)(void*), void (*failed)(void*, CException*), void* context)
{
    try {
        call(context);
    } catch (CException* exception) {
        failed(context, exception);
    } catch (const std::exception& exception) {
        TRACE(L"exception in a message handler: %S\n", exception.what());
        failed(context, nullptr);
    } catch (...) {
        failed(context, nullptr);
    }
}

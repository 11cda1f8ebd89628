/// @file
/// Contexts of windows, obtained by the constructor and released by the destructor.
#pragma once

#include <toolkit/dc.h>

class AFX_EXPORTED CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)

public:
    /// The context of the whole screen if there is no window.
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

class AFX_EXPORTED CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)

public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};

/// For handlers of WM_PAINT only: it also validates the window.
class AFX_EXPORTED CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)

public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

protected:
    HWND m_hWnd;
};

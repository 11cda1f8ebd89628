// A program with windows: its application object does the work.
#include <afxwin.h>

class App : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        CWnd window;
        if (window.CreateEx(0, nullptr, L"window", WS_POPUP, CRect(0, 0, 30, 20), nullptr, 0)) {
            CString text;
            window.GetWindowText(text);
            m_result = text == L"window" && CString(m_lpCmdLine) == L"one two" ? 0 : 2;
        }
        return FALSE;
    }
    int ExitInstance() override { return m_result; }

private:
    int m_result = 1;
} theApp;

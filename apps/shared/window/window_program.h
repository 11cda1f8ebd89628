/// @file
/// A program with a window.
#pragma once

#include <afxwin.h>

#include <exception>
#include <string>

/// Shows what goes wrong at its start, and ends with exit status 2 then.
class WindowProgram : public CWinApp
{
public:
    /// @param name of the program, for its messages
    WindowProgram(const char* name, LPCWSTR title) : CWinApp(title), m_name(name), m_title(title) {}

    BOOL InitInstance() final;
    int ExitInstance() override;

protected:
    /// Opens the window.
    /// @return false if the program ends here
    virtual bool start() = 0;

private:
    std::string m_name;
    LPCWSTR m_title;
    int m_status = 0;
};

#include "window_program.h"

#include "report.h"

BOOL WindowProgram::InitInstance()
{
    try {
        return start();
    } catch (const std::exception& error) {
        report(m_name + ": " + error.what() + "\n", MB_ICONERROR, m_title);
        m_status = 2;
        return FALSE;
    }
}

int WindowProgram::ExitInstance()
{
    const int status = CWinApp::ExitInstance();
    return m_status != 0 ? m_status : status;
}

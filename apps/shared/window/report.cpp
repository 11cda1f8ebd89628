#include "report.h"

#include "../input.h"

void report(const std::string& text, UINT kind, LPCWSTR title)
{
    const HANDLE out = GetStdHandle(kind == MB_ICONERROR ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    DWORD written = 0;
    if (out == nullptr || !WriteFile(out, text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
        MessageBoxW(nullptr, wide(text), title, MB_OK | kind);
}

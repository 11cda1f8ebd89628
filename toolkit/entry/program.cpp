// The entry function of a program with an application object.
#include <afxwin.h>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE before, LPSTR, int show)
{
    // The command line begins with the program's own name, in quotes or up to a blank.
    LPWSTR line = ::GetCommandLineW();
    const bool quoted = *line == L'"';
    for (line += quoted; *line != L'\0' && (quoted ? *line != L'"' : *line > L' '); ++line) {
    }
    line += quoted && *line != L'\0';
    while (*line == L' ' || *line == L'\t')
        ++line;
    return AfxWinMain(instance, before, line, show);
}

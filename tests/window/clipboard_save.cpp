// Saves the metafile on the clipboard: clipboard_save FILE. Another program than the one that put it there must get it.
#include <windows.h>

int wmain(int argc, wchar_t** argv)
{
    if (argc != 2 || !OpenClipboard(nullptr))
        return 2;
    const HENHMETAFILE copy = CopyEnhMetaFileW(static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE)), argv[1]);
    CloseClipboard();
    return DeleteEnhMetaFile(copy) ? 0 : 1;
}

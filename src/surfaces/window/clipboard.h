// Metafiles on the clipboard.
#pragma once

#include <windows.h>

namespace VEK
{

/// Empties the clipboard and puts the metafile there that `make` gives; null leaves it empty.
/// @return false, with nothing made, when somebody else holds the clipboard open
template <class Make>
bool toClipboard(Make make)
{
    if (!OpenClipboard(nullptr))
        return false;
    EmptyClipboard();
    const HENHMETAFILE metafile = make();
    if (metafile && !SetClipboardData(CF_ENHMETAFILE, metafile))
        DeleteEnhMetaFile(metafile);
    CloseClipboard();
    return true;
}

} // namespace VEK

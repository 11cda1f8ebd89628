// Metafiles on the clipboard.
#pragma once

#include <windows.h>

#include <memory>

namespace VEK
{

/// Empties the clipboard and places the metafile from `make` on it; null leaves it empty.
/// @param owner the window that owns the clipboard from then on; without one a system may refuse the metafile
/// @return false, with `make` not called, if another program has the clipboard open
template <class Make>
bool toClipboard(Make make, HWND owner = nullptr)
{
    if (!OpenClipboard(owner))
        return false;
    const auto close = [](void*) { CloseClipboard(); };
    const std::unique_ptr<void, decltype(close)> open(&owner, close); // `make` may throw
    EmptyClipboard();
    const HENHMETAFILE metafile = make();
    if (metafile && !SetClipboardData(CF_ENHMETAFILE, metafile))
        DeleteEnhMetaFile(metafile);
    return true;
}

} // namespace VEK

// Metafiles on the clipboard.
#pragma once

#include <windows.h>

#include <memory>

namespace VEK
{

/// Empties the clipboard and puts the metafile there that `make` gives; null leaves it empty.
/// @param owner the window to which the clipboard belongs from then on; without one a system may refuse the metafile
/// @return false, with nothing made, when somebody else holds the clipboard open
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

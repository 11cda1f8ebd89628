#include <vek/display/draw.h>
#include <vek/surfaces/gdi.h>

#include <windows.h>

namespace
{

/// @return whether the clipboard has taken the metafile over
bool toClipboard(HENHMETAFILE metafile)
{
    if (!OpenClipboard(nullptr))
        return false;
    EmptyClipboard();
    const bool taken = SetClipboardData(CF_ENHMETAFILE, metafile) != nullptr;
    CloseClipboard();
    return taken;
}

} // namespace

void refresh(CVekGDX* gdx, const wchar_t* file, int height, int width)
{
    if (!gdx)
        return;
    const HDC dc = CreateEnhMetaFileW(nullptr, file, nullptr, nullptr);
    VEK::gdxDraw(*gdx, *VEK::gdiSurface(dc), height, width, VEK::paperRules);
    const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    if (metafile && (file || !toClipboard(metafile)))
        DeleteEnhMetaFile(metafile); // of a file only the handle
}

#include "core/values/whole.h"
#include "surfaces/window/clipboard.h"

#include <vek/display/draw.h>
#include <vek/surfaces/gdi.h>

void refresh(CVekGDX* gdx, const wchar_t* file, int height, int width)
{
    if (!gdx)
        return;
    const HDC dc = CreateEnhMetaFileW(nullptr, file, nullptr, nullptr);
    const bool complete = VEK::whole(false, [&] {
        const auto surface = VEK::gdiSurface(dc);
        return surface && VEK::gdxDraw(*gdx, *surface, height, width, VEK::paperRules);
    });
    const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    if (metafile && (file || !complete || !VEK::toClipboard([&] { return metafile; })))
        DeleteEnhMetaFile(metafile); // deletes only the handle of a file
    if (metafile && file && !complete)
        DeleteFileW(file);
}

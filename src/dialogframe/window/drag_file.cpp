#include <vek/dialogframe/window/dlg.h>

#include <cstring>
#include <io.h>
#include <shlobj.h>

bool VEK::DoDragDrop(const wchar_t* path, DROPEFFECT allowed, const RECT* start, COleDropSource* source)
{
    if (!path || ::_waccess(path, 0) != 0)
        return false;
    const std::size_t bytes = std::wcslen(path) * sizeof *path;
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + bytes + 2 * sizeof *path);
    auto* const list = memory ? static_cast<DROPFILES*>(::GlobalLock(memory)) : nullptr;
    if (!list)
        return false;
    list->pFiles = sizeof *list;
    list->fNC = TRUE; // the point, which nobody has set, counts in the screen
    list->fWide = TRUE;
    std::memcpy(list + 1, path, bytes); // two terminators remain behind it: that of the path and that of the list
    ::GlobalUnlock(memory);
    COleDataSource data;
    FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    data.CacheGlobalData(CF_HDROP, memory, &format);
    return data.DoDragDrop(allowed, start, source) != DROPEFFECT_NONE;
}

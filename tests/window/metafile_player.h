// Plays metafiles by the system, as an independent reader.
#pragma once

#include "window/device_pixels.h"

#include <gtest/gtest.h>

#include <string>

/// Plays a record as it stands, without the fit to a frame that would round coordinates.
inline int CALLBACK playRecord(HDC dc, HANDLETABLE* table, const ENHMETARECORD* record, int handles, LPARAM)
{
    if (record->iType == EMR_HEADER)
        ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
    if (record->iType == EMR_EXTSELECTCLIPRGN) { // the player fits regions by itself
        const auto* clip = reinterpret_cast<const EMREXTSELECTCLIPRGN*>(record);
        const auto* data = reinterpret_cast<const RGNDATA*>(clip->RgnData);
        const HRGN region = ExtCreateRegion(nullptr, clip->cbRgnData, data);
        const int kind = ExtSelectClipRgn(dc, region, static_cast<int>(clip->iMode));
        DeleteObject(region);
        return kind != ERROR;
    }
    return PlayEnhMetaFileRecord(dc, table, record, static_cast<UINT>(handles));
}

/// What a metafile shows.
/// @param header of the file as the system reads it
inline VEK::CPixels playedPixels(const std::string& bytes, int width, int height, ENHMETAHEADER& header)
{
    const Canvas canvas(width, height);
    const HENHMETAFILE file =
        SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), reinterpret_cast<const BYTE*>(bytes.data()));
    EXPECT_EQ(GetEnhMetaFileHeader(file, sizeof header, &header), sizeof header);
    SetGraphicsMode(canvas.dc, GM_ADVANCED);
    const RECT area = {0, 0, width, height};
    EXPECT_TRUE(EnumEnhMetaFile(canvas.dc, file, playRecord, nullptr, &area));
    DeleteEnhMetaFile(file);
    return canvas.pixels();
}

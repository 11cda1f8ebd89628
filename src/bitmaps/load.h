// Pictures by name.
#pragma once

#include <vek/bitmaps/picture.h>

namespace VEK
{

/// Result of an attempt to load a picture.
enum class LoadResult {
    done,
    none,   ///< there is no such picture, or it is damaged
    unread, ///< the file cannot be read at the moment, or out of memory
};

/// As `loadPicture`.
/// @param pixels empty unless the result is `done`
LoadResult tryLoadPicture(const CVekString& name, int id, int cx, int cy, bool& transparent, unsigned long back,
                          CPixels& pixels);

} // namespace VEK

/// @file
/// The process-wide registry of display objects under small integer keys, and the table of image functions by name.
/// Both start empty, have no locking and belong to the user-interface thread.
#pragma once

#include <vek/display/gdx.h>

class CVekDataItem;

namespace VEK
{

class CDtaFilePointer;

/// An image function fills a display object from an object's file and a parameter file, either of which may be null.
using GdxImageFcn = bool (*)(CVekGDX* gdx, CDtaFilePointer* object, CDtaFilePointer* params);

/// Enters or replaces the function of a name; a null function removes the entry. A null name does nothing, and when
/// memory runs out the table is unchanged.
VEK_API void setGdxImageFcn(const wchar_t* name, GdxImageFcn fcn);

} // namespace VEK

/// The smallest free key, from 1. It is not reserved.
VEK_API int gdxMapKeyNew();

/// Stores a deep copy under a key; an existing object is overwritten in place. When memory runs out the registry is
/// unchanged.
VEK_API void gdxMapSetAt(int key, const CVekGDX& gdx);

/// Destroys the object of a key.
/// @return false when the key is absent
VEK_API bool gdxMapRemoveAt(int key);

/// The object of a key, owned by the registry and valid until the key is removed; null when the key is absent.
VEK_API CVekGDX* getGdxFromMap(int key);

/// Calls the image function of a name with these arguments.
/// @return its result; false for a null or unknown name and when memory runs out
VEK_API bool vek_gdx_image(const wchar_t* name, CVekGDX* gdx, VEK::CDtaFilePointer* object,
                           VEK::CDtaFilePointer* params);

/// Builds a display object with the configured colours and defaults, which the keys of a data item override, and
/// registers it. The item may be null; one that is not a directory is treated as null.
///
/// Keys of the item: "PDSIZE" and "PDMODE" (int), "EXTVIEW" (two points, the extents to fit), "MTX" (projection),
/// "COLOR" (index of the back colour), and with it "RGB" (text of its number 0xRRGGBB) and "TBL" (its name). The
/// configured "PDSIZE" is read as an int here, so a fraction is truncated: older drawings rely on whole sizes.
/// @return the new key, or -1, with nothing stored, when memory runs out
VEK_API int createGdxInMap(const CVekDataItem* item);

namespace VEK
{
using ::createGdxInMap;
using ::gdxMapKeyNew;
using ::gdxMapRemoveAt;
using ::gdxMapSetAt;
using ::getGdxFromMap;
} // namespace VEK

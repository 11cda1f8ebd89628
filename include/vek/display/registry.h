/// @file
/// The process-wide registry of display objects under small keys, and the table of image functions by name. Both
/// start empty, have no lock and belong to the user-interface thread.
#pragma once

#include <vek/display/gdx.h>

class CVekDataItem;

namespace VEK
{

class CDtaFilePointer;

/// An image function fills a display object from an object's file and a parameter file, either of which may be null.
using GdxImageFcn = bool (*)(CVekGDX* gdx, CDtaFilePointer* object, CDtaFilePointer* params);

/// Enters or replaces the function of a name; a null function removes the entry. A null name enters nothing, and where
/// memory ends the table stays as it was.
VEK_API void setGdxImageFcn(const wchar_t* name, GdxImageFcn fcn);

} // namespace VEK

/// The smallest key from 1 on that is free. It is not reserved.
VEK_API int gdxMapKeyNew();

/// Stores a deep copy under a key; an object that is there already is overwritten in place. Where memory ends, what is
/// there stays as it was, and a key that is absent stays so.
VEK_API void gdxMapSetAt(int key, const CVekGDX& gdx);

/// Destroys the object of a key.
/// @return false when the key is absent
VEK_API bool gdxMapRemoveAt(int key);

/// The object of a key, owned by the registry and valid until the key is removed; null when the key is absent.
VEK_API CVekGDX* getGdxFromMap(int key);

/// Calls the image function of a name with the arguments as they stand.
/// @return its result; false for a null name, one that is not entered and where memory ends
VEK_API bool vek_gdx_image(const wchar_t* name, CVekGDX* gdx, VEK::CDtaFilePointer* object,
                           VEK::CDtaFilePointer* params);

/// Builds a display object with the configured colours and defaults, which the keys of a data item override, and
/// registers it. The item may be null; what is no directory counts as null.
///
/// Keys of the item: "PDSIZE" and "PDMODE" (int), "EXTVIEW" (two points, the extents to fit), "MTX" (projection),
/// "COLOR" (index of the back colour), and beside it "RGB" (text of its number 0xRRGGBB) and "TBL" (its name). The
/// configured "PDSIZE" is read as an int here, so a fraction is cut: older drawings rely on whole sizes.
/// @return the new key, or -1, with nothing stored, where memory ends
VEK_API int createGdxInMap(const CVekDataItem* item);

namespace VEK
{
using ::createGdxInMap;
using ::gdxMapKeyNew;
using ::gdxMapRemoveAt;
using ::gdxMapSetAt;
using ::getGdxFromMap;
} // namespace VEK

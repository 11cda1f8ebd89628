/// @file
/// Member functions that callers may call on a null pointer. This source is compiled with an option that keeps the
/// compiler from assuming that `this` is not null.
#include <vek/data/file.h>

namespace VEK
{

CVekDataItem* CDtaFilePointer::get(const CVekDataKey* key, bool) const
{
    return fileItem(this, key);
}

CVekDataItem* CDtaFilePointer::get(const wchar_t* path, bool) const
{
    return fileItem(this, path);
}

CVekDataItem* CDtaFilePointer::get(std::nullptr_t, bool) const
{
    return fileItem(this, static_cast<const CVekDataKey*>(nullptr));
}

} // namespace VEK

CVekDataItem::CVekDataItem(const CVekDataItem& other) : CVekDataItem(&other) {}

CVekDataItem& CVekDataItem::operator=(const CVekDataItem& other) // NOLINT(bugprone-unhandled-self-assignment)
{
    CVekDataItem copy;
    if (copy.copyFrom(&other)) { // before anything is destroyed: other may be below or above this item
        clear();
        takeOver(copy);
    }
    return *this;
}

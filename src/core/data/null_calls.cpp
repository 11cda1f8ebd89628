/// @file
/// Calls that callers make on what may not be there. This source is compiled so that the language's promise of a
/// present object is not believed.
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
    if (copy.copyFrom(&other)) { // before anything goes: other may stand below this item or above it
        clear();
        takeOver(copy);
    }
    return *this;
}

#include <vek/dialogframe/field_chain.h>

namespace VEK
{

namespace
{

/// Null if the window is itself the first.
const void* firstSibling(const Siblings& siblings, const void* window)
{
    const void* first = nullptr;
    for (const void* at = siblings.previous(window); at; at = siblings.previous(at))
        first = at;
    return first;
}

} // namespace

bool isField(const FieldTraits& traits)
{
    return traits.isVisible && traits.isEnabled && (traits.isEdit || (traits.isComboBox && (traits.style & 1) == 0));
}

const void* nextField(const Siblings& siblings, const void* window)
{
    const void* at = siblings.next(window);
    if (!at)
        return nullptr;
    for (; at; at = siblings.next(at)) {
        if (siblings.isField(at))
            return at;
    }
    for (at = firstSibling(siblings, window); at && at != window; at = siblings.next(at)) {
        if (siblings.isField(at))
            return at;
    }
    return nullptr;
}

const void* firstField(const Siblings& siblings, const void* window)
{
    const void* at = firstSibling(siblings, window);
    while (at && !siblings.isField(at))
        at = siblings.next(at);
    return at;
}

} // namespace VEK

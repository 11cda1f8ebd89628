/// @file
/// The chain of a dialog's value fields, through which Return and Page Up lead.
#pragma once

#include <vek/export.h>

namespace VEK
{

/// What decides whether a window is a field.
struct FieldTraits {
    bool isVisible = false;
    bool isEnabled = false;
    bool isEdit = false; ///< an edit control
    bool isComboBox = false;
    unsigned long style = 0; ///< window style; bit 0 is set in combo boxes without an edit field, and in simple ones
};

/// Whether a window is a field: an edit control, or a combo box with an edit field and a list that drops down; visible
/// and enabled.
VEK_API bool isField(const FieldTraits& traits);

/// Windows with the same parent, in tab order. A window is any pointer, null is none.
class VEK_API Siblings
{
public:
    virtual ~Siblings() = default;
    virtual const void* next(const void* window) const = 0;
    virtual const void* previous(const void* window) const = 0;
    virtual bool isField(const void* window) const = 0;
};

/// The field after a window; after the last window the search goes on at the first one, but it does not begin there:
/// the last sibling has no next field. So Return in the last field of a form checks that field and stays.
/// @return null if there is no other field
VEK_API const void* nextField(const Siblings& siblings, const void* window);

/// The first field of all. Null if there is none, or if the window is itself the first of all siblings, field or not.
VEK_API const void* firstField(const Siblings& siblings, const void* window);

} // namespace VEK

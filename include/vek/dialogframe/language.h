/// @file
/// The language in which a dialog opens.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// The windows above a dialog.
class VEK_API DlgParents
{
public:
    virtual ~DlgParents() = default;
    /// Goes to the next one, at first to the direct parent.
    /// @return false if there is none
    virtual bool up() = 0;
    /// The language of the window, if it is a dialog of the same class as the one that opens, or of a class derived
    /// from it; else null.
    virtual const wchar_t* language() = 0;
};

/// The language of a dialog that opens: its own if it has one, else that of the nearest parent of the same class, else
/// the process's. Another dialog does not pass its language on, because its texts may be in a language of their own.
VEK_API CVekString dlgLanguage(const wchar_t* own, DlgParents& parents);

} // namespace VEK

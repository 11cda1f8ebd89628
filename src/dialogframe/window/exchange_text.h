/// @file
/// Messages about invalid values in the user's language.
#pragma once

#include <afxwin.h>

namespace VEK
{

/// The text of a message of the exchange of values, from the callback of all dialogs.
/// @param id of the messages from AFX_IDP_PARSE_INT on
/// @return valid until the eighth text from now in any dialog; null for an unknown id or without a callback
LPCWSTR exchangeText(UINT id, LPCWSTR builtIn);

} // namespace VEK

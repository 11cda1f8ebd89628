// What the rest of the toolkit needs from the interface to the user.
#pragma once

#include <afxwin.h>
#include <toolkit/user.h>

namespace toolkit
{

/// The object that answers in place of the user; null for the person at the screen.
User* userInPlace();
/// The text of one of the numbers AFX_IDP_, with %1 and %2 still to be filled in.
CString userText(UINT id);

} // namespace toolkit

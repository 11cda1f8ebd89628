/// @file
/// What the library needs of the system it runs on, and of the characters and files of every system. What differs
/// by system stands in twin files `*_posix.cpp` and `*_win.cpp`.
#pragma once

namespace VEK::platform
{

/// The other case of a character, by the simple mappings of Unicode, the same in every system and locale. A character
/// without a single counterpart stays, as "ß" does, and so does one beyond the basic plane.
wchar_t upperOf(wchar_t character);
wchar_t lowerOf(wchar_t character);

} // namespace VEK::platform

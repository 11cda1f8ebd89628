/// @file
/// What happens where memory is not to be had.
///
/// Values never throw for it. An array, string, map or tree that cannot take more stays as it was, a pointer that would
/// lead to something new is null, and the process counts the shortage. A value made of several parts may so come out
/// with some of them missing: the count tells.
///
/// What hands out, stores or reports a whole looks at the count for its caller: the reading and writing of files, the
/// copy of a tree, the result of a function that says whether it succeeded. It gives its failure (false, null, an empty
/// result) when memory was short meanwhile, and leaves its targets as they were. Since the count is that of the
/// process, a shortage in another thread may make such a call fail as well; nothing that is incomplete ever passes for
/// a success.
///
/// A caller who puts values together by hand does the same: it reads the count before and after.
#pragma once

#include <vek/export.h>

namespace VEK
{

/// How often memory was not to be had since the process began. It only rises.
VEK_API unsigned long memoryShortages() noexcept;

/// Counts one more shortage, for an owner of memory that asks elsewhere for it.
VEK_API void memoryShort() noexcept;

} // namespace VEK

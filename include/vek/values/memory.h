/// @file
/// What happens when memory runs out.
///
/// Values never throw for it. An array, string, map or tree that cannot grow stays as it was, a pointer to a new object
/// is null, and the process counts the failed allocation. A value of several parts may thus end up incomplete; the
/// count reveals it.
///
/// Functions that return or store a complete result check the count for their caller: reading and writing files,
/// copying a tree, everything that reports success. If an allocation failed during the call they report failure (false,
/// null, an empty result) and leave their targets as they were. Since the count is that of the process, a failed
/// allocation in another thread may make such a call fail as well; an incomplete result is never reported as success.
///
/// A caller that assembles values itself does the same: it compares the count before and after.
#pragma once

#include <vek/export.h>

namespace VEK
{

/// How many allocations have failed since the process began. It only rises.
VEK_API unsigned long memoryShortages() noexcept;

/// Counts one more failed allocation, for code that allocates by other means than these values.
VEK_API void memoryShort() noexcept;

} // namespace VEK

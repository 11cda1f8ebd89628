/// @file
/// The pauses while the text application starts.
#pragma once

#include <functional>

namespace VEK
{

/// Replaces waiting, of so many milliseconds, by a hook.
/// @param hook empty for the system
/// @return the previous hook
std::function<void(unsigned long)> rscWaitHookSet(std::function<void(unsigned long)> hook);

} // namespace VEK

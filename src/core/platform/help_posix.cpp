#include "core/platform/outside.h"

namespace VEK::platform
{

bool helpBySystem(const OutsideCall&)
{
    return false;
}

} // namespace VEK::platform

#include "core/platform/platform.h"

namespace VEK::platform
{

bool systemIcon(int, IconBits&)
{
    return false;
}

bool moduleIcon(const std::filesystem::path&, int, int, int, IconBits&)
{
    return false;
}

} // namespace VEK::platform

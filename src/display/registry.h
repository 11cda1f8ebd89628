// Entering display objects into the registry.
#pragma once

#include <vek/display/gdx.h>

namespace VEK
{

/// As `gdxMapSetAt`, without a copy.
/// @return false, with the registry unchanged, when memory runs out
bool gdxMapMoveTo(int key, CVekGDX&& gdx);

} // namespace VEK

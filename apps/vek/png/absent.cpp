// For a build without libpng.
#include "../png.h"

bool canWritePng()
{
    return false;
}

bool writePng(VEK::CByteSink&, const VEK::CPixels&)
{
    return false;
}

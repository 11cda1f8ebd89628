#include "core/platform/outside.h"

#include <utility>

namespace
{

std::function<bool(const VEK::platform::OutsideCall&)>& theHook()
{
    static std::function<bool(const VEK::platform::OutsideCall&)> hook;
    return hook;
}

} // namespace

namespace VEK::platform
{

bool outside(const OutsideCall& call)
{
    if (theHook())
        return theHook()(call);
    const bool starts = call.what == OutsideCall::What::program || call.what == OutsideCall::What::document;
    return starts ? startBySystem(call) : helpBySystem(call);
}

std::function<bool(const OutsideCall&)> outsideHookSet(std::function<bool(const OutsideCall&)> hook)
{
    return std::exchange(theHook(), std::move(hook));
}

} // namespace VEK::platform

/// @file
/// What leaves this process for the system: programs, documents and help. All of it passes here, so that tests, and
/// hosts with rules of their own, can stand in the system's place.
#pragma once

#include "core/platform/platform.h"

#include <functional>

namespace VEK::platform
{

/// One request to the system.
struct OutsideCall {
    enum class What {
        program,     ///< to be started
        document,    ///< document, folder or web address, to be opened with the program of its kind
        helpTopic,   ///< first page of a compiled help file
        helpKeyword, ///< page of a keyword in a compiled help file
        helpPopup,   ///< text beside a place on the screen
    };
    What what = What::program;
    std::wstring target;       ///< program, document or help file
    std::wstring text;         ///< arguments of the program, keyword, text of the popup
    unsigned long timeout = 0; ///< milliseconds to wait for the program's end, 0 for not at all
    bool show = true;
    int x = 0, y = 0; ///< of the popup, in pixels of the screen

    bool operator==(const OutsideCall&) const = default;
};

/// Hands a request to the system, or to the hook that stands in its place.
/// @return whether it could be done; for a program with a timeout, whether it ended in time
bool outside(const OutsideCall& call);

/// Puts a hook in the place of the system.
/// @param hook empty for the system
/// @return the hook before
std::function<bool(const OutsideCall&)> outsideHookSet(std::function<bool(const OutsideCall&)> hook);

/// What the system does for a program or document, and for help, which only Windows has.
bool startBySystem(const OutsideCall& call);
bool helpBySystem(const OutsideCall& call);

} // namespace VEK::platform

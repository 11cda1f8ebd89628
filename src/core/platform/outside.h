/// @file
/// Requests to the system: programs, documents and help. They all go through here, so that tests, and hosts with rules
/// of their own, can replace the system.
#pragma once

#include "core/platform/platform.h"

#include <functional>

namespace VEK::platform
{

/// One request to the system.
struct OutsideCall {
    enum class What {
        program,     ///< to start
        document,    ///< document, folder or web address, to open with its associated program
        helpTopic,   ///< first page of a compiled help file
        helpKeyword, ///< page of a keyword in a compiled help file
        helpPopup,   ///< text beside a place on the screen
    };
    What what = What::program;
    std::wstring target = {};  ///< program, document or help file
    std::wstring text = {};    ///< arguments of the program, keyword, text of the popup
    unsigned long timeout = 0; ///< milliseconds to wait for the program's end, 0 for not at all
    bool show = true;
    int x = 0, y = 0; ///< of the popup, in screen pixels

    bool operator==(const OutsideCall&) const = default;
};

/// Passes a request to the system, or to the hook that replaces it.
/// @return whether it could be done; for a program with a timeout, whether it ended in time
bool outside(const OutsideCall& call);

/// Replaces the system by a hook.
/// @param hook empty for the system
/// @return the previous hook
std::function<bool(const OutsideCall&)> outsideHookSet(std::function<bool(const OutsideCall&)> hook);

/// What the system does for a program or document, and for help, which only Windows has.
bool startBySystem(const OutsideCall& call);
bool helpBySystem(const OutsideCall& call);

} // namespace VEK::platform

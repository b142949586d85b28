// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// What was being done to a file when the system refused.
enum class Step {
    Read,   ///< look at it or read it
    Remove, ///< take it out of its folder
    Write,  ///< bring it, or something of it, to the destination folder
    Trash,  ///< put it into the trash
    Enter,  ///< go to the folder that it is in
    Note    ///< note in the trash where it comes from
};

/// Why a step failed, by the system's error number, as a sentence without the path.
std::string Reason(int nError, Step step);

} // namespace desktop

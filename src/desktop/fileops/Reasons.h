// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// The step in which the system reported an error.
enum class Step {
    Read,   ///< looking at the file or reading it
    Remove, ///< removing it from its folder
    Write,  ///< writing something to the destination folder
    Trash,  ///< putting it into the trash
    Enter,  ///< opening its folder
    Note    ///< writing the note in the trash with its original path
};

/// The reason for an error number in a step, as a sentence without the path.
std::string Reason(int nError, Step step);

} // namespace desktop

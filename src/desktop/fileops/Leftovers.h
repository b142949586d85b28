// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "HeldFolder.h"
#include "OperationDialogs.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// Cleans up what a terminated run has left in a folder: removes its unfinished copies, and renames the
/// sources of moves back to their original names. Leaves alone files locked by a running process, and those
/// that `isOthers` accepts. Adds files that could not be renamed back to `left`, with the reason.
void ClearLeftovers(
    const HeldFolder& folder, std::vector<tNotDone>& left,
    const std::function<bool(const std::string&)>& isOthers = [](const std::string&) { return false; });

/// The names in an open folder that `wanted` accepts; empty if it cannot be listed.
std::vector<std::string> NamesIn(int hFolder, bool (*wanted)(std::string_view));

/// Opens and locks a file that a terminated run has left in an open folder. Not open if the owner of the lock
/// is alive, or if it is not a regular file of the user, or of any user with `bAnyUsers`.
Descriptor Inherited(int hFolder, const std::string& sName, bool bAnyUsers = false);

} // namespace desktop

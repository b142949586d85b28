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

/// Puts in order what a run that died has left in a folder: removes its unfinished copies, and gives the
/// sources of moves that it had set aside their names back. What a living run holds stays, and so does what
/// `isOthers` accepts. Adds to `left` what could not get its name back, and why.
void ClearLeftovers(
    const HeldFolder& folder, std::vector<tNotDone>& left,
    const std::function<bool(const std::string&)>& isOthers = [](const std::string&) { return false; });

/// The names in an open folder that `wanted` accepts; none where it cannot be listed.
std::vector<std::string> NamesIn(int hFolder, bool (*wanted)(std::string_view));

/// Opens and locks a file that a dead run has left in an open folder. Not open if its owner lives, or if it
/// is not an ordinary file, the user's own unless `bAnyUsers`.
Descriptor Inherited(int hFolder, const std::string& sName, bool bAnyUsers = false);

} // namespace desktop

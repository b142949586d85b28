// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "HeldFolder.h"
#include "OperationDialogs.h"

#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// Puts in order what a run that died has left in a folder: removes its unfinished copies, and gives the
/// sources of moves that it had set aside their names back. What a living run holds stays, and so does what
/// is another user's. Adds to `left` what could not get its name back because that is taken.
void ClearLeftovers(const HeldFolder& folder, std::vector<tNotDone>& left);

/// The names in an open folder that `wanted` accepts; none where it cannot be listed.
std::vector<std::string> NamesIn(int hFolder, bool (*wanted)(std::string_view));

/// Opens and locks a file that a dead run has left in an open folder. Not open if its owner lives, or if it
/// is not the user's own ordinary file.
Descriptor Inherited(int hFolder, const std::string& sName);

} // namespace desktop

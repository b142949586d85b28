// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolders.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"

#include <optional>

namespace desktop {

/// The space that the files of a plan need on the destination's volume, if there is not enough; empty if
/// there is, or if that is unknown.
std::optional<tRoom> MissingRoom(const tOperationPlan& plan, HeldFolders& folders);

} // namespace desktop

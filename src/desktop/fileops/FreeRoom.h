// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolders.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"

#include <optional>

namespace desktop {

/// What the files of a plan need of their destination's volume, if there is not that much; nothing if there
/// is, or if the system does not tell.
std::optional<tRoom> MissingRoom(const tOperationPlan& plan, HeldFolders& folders);

} // namespace desktop

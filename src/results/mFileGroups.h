// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "ListView.h"
#include <span>
#include <string>

namespace results {

/// The groups of the files `paths` according to the rows of `lv`, which come from a search that compared
/// files by `comparedBy`. Makes a single pass over the rows, however many paths there are.
platform::tFileGroups GroupsOf(platform::ListView& lv, platform::ComparedBy comparedBy,
                               std::span<const std::string> paths);

} // namespace results

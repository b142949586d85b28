// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "ListView.h"
#include <span>
#include <string>

namespace results {

/// What the rows of `lv`, which a search wrote that compared files by `comparedBy`, say of the files `paths`.
/// One pass over the rows, however many paths there are.
platform::tFileGroups GroupsOf(platform::ListView& lv, platform::ComparedBy comparedBy,
                               std::span<const std::string> paths);

} // namespace results

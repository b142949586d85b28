// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <string>
#include <string_view>

namespace platform {

/// A sort key for the natural order of names: keys compare bytewise as the names should. "." comes before
/// every other character. A run of ASCII digits counts as one number and sorts among the other characters as
/// a digit would. ASCII letters compare as lower case, all other bytes by value, and a name comes before any
/// longer name that it is a prefix of. Names that differ only in letter case or in leading zeros have the
/// same key; their bytes decide.
std::string NameKey(std::string_view sName);

/// Sorts the entries by name, visible ones before hidden ones.
void SortListing(FolderListing& listing);

} // namespace platform

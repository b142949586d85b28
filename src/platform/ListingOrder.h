// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <string>
#include <string_view>

namespace platform {

/// Bytes that order names as a person would: keys compare as their names do. "." comes before every other
/// character, a run of ASCII digits counts as one number, which stands where digits do, ASCII letters count
/// as small ones, every other byte counts by its value, and a name comes before its longer continuation.
/// Names that differ in letter case or in zeros before a number alone have one key; they go by their bytes.
std::string NameKey(std::string_view sName);

/// Puts the visible entries before the hidden ones, and both in the order of their names.
void SortListing(FolderListing& listing);

} // namespace platform

// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"
#include "SearchReading.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace search {

/// Appends the files of folder `sPath` and of all folders below it to FileList and raises FileCount: a
/// folder's own files first, in the order of the listing, then its subfolders one by one. Hidden entries are
/// left out unless mnuOptionsHidden is checked; a folder that cannot be opened counts as empty. Yields at
/// every entry, and while `reading` has no listing yet, and returns at once when bStopped is set.
void FindAllFiles(std::string sPath, platform::SearchReading& reading);

/// So many accepted subfolders of a folder are entered.
inline constexpr std::size_t kMaxSubfolders = std::numeric_limits<std::int16_t>::max();

/// `sText` up to its first NUL character, or all of it.
std::string_view TrimNull(std::string_view sText);

/// The local date and time of `ftTime`, day first and without leading zeros, as 5/2/2004 9:7:3. Empty if the
/// calendar cannot express it.
std::string FileTimeToText(platform::tFileTime ftTime);

/// True if full path `sPath` names a file or folder at this moment.
bool FileFound(const std::string& sPath);

} // namespace search

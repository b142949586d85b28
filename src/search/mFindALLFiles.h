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

/// Appends the files in folder `sPath` and all its subfolders to FileList and raises FileCount: the folder's
/// own files first, in listing order, then one subfolder after the other. Skips hidden entries unless
/// mnuOptionsHidden is checked; a folder that cannot be opened counts as empty. Yields at every entry and
/// while waiting for `reading`, and returns at once when bStopped is set.
void FindAllFiles(std::string sPath, platform::SearchReading& reading);

/// The maximum number of accepted subfolders that are entered per folder.
inline constexpr std::size_t kMaxSubfolders = std::numeric_limits<std::int16_t>::max();

/// `sText` up to its first NUL, or all of it.
std::string_view TrimNull(std::string_view sText);

/// `ftTime` as local date and time, day first and without leading zeros, as in 5/2/2004 9:7:3. Empty if the
/// calendar cannot express it.
std::string FileTimeToText(platform::tFileTime ftTime);

/// True if there currently is a file or folder at full path `sPath`.
bool FileFound(const std::string& sPath);

} // namespace search

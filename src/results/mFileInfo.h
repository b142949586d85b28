// SPDX-License-Identifier: MIT
#pragma once

#include "Paths.h"

#include <string>

// Queries about paths and files for the commands on rows.

namespace results {

/// True if the shell finds a file or folder at full path `sPath`. False for an empty path.
bool FileExists(const std::string& sPath);

/// `sFolder` and `sFile` joined with exactly one separator; `sFile` alone if there is no folder.
std::string JoinPath(const std::string& sFolder, const std::string& sFile,
                     char cSeparator = platform::kSeparator);

/// The parent folder of `sPathName`, ignoring a trailing separator. The result ends in a separator if
/// `bTrailing`. Empty if nothing precedes the last separator.
std::string ParentFolder(std::string sPathName, bool bTrailing, char cSeparator = platform::kSeparator);

/// Identifies the drive of a folder: the drive letter and its colon, or the two separators in front of a
/// network path; otherwise the file system that contains it. Empty for an empty path.
std::string DriveOf(const std::string& sFolder, char cSeparator = platform::kSeparator);

} // namespace results

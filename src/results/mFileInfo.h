// SPDX-License-Identifier: MIT
#pragma once

#include "FileSystem.h"

#include <string>

// What is asked of paths and files by those who act on the rows.

namespace results {

/// True if the shell sees something at full path `sPath`. False for an empty path.
bool FileExists(const std::string& sPath);

/// `sFolder` and `sFile` with exactly one separator between them; `sFile` alone without a folder.
std::string JoinPath(const std::string& sFolder, const std::string& sFile,
                     char cSeparator = platform::kSeparator);

/// The folder that holds `sPathName`, a trailing separator of which does not count. It ends in a separator if
/// `bTrailing`. Empty if nothing stands in front of the last separator's place.
std::string ParentFolder(std::string sPathName, bool bTrailing, char cSeparator = platform::kSeparator);

/// What a folder's drive is told by: a drive letter and its colon, or the two separators in front of a
/// network path; otherwise the mounted file system that holds it. Empty for an empty path.
std::string DriveOf(const std::string& sFolder, char cSeparator = platform::kSeparator);

} // namespace results

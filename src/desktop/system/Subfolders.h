// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace desktop {

/// The names of the folders in folder `sPath`, exact bytes, as they come. Links to folders are none. Empty
/// for a folder that cannot be listed.
std::vector<std::string> Subfolders(const std::string& sPath);

/// True if folder `sPath` has a folder of that name, which is no link.
bool IsSubfolder(const std::string& sPath, const std::string& sName);

/// The names of the regular files in folder `sPath` that match a shell pattern, "*.txt", whatever their
/// letter case, exact bytes, as they come. Empty for a folder that cannot be listed.
std::vector<std::string> FileNames(const std::string& sPath, const std::string& sPattern);

/// False if a look into folder `sPath` finds that there is no folder in it or that it cannot be listed. A
/// look takes no time that a person could notice: one that would take long, because the folder is large or
/// another file system is mounted there or waits to be, is not taken.
bool MayHaveSubfolders(const std::string& sPath);

} // namespace desktop

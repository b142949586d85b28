// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace desktop {

/// A top-level folder of the folder tree.
struct tRootFolder {
    std::string sPath; ///< canonical, without a trailing separator (except for the root)
    std::string sName; ///< as displayed
};

/// The top-level folders: the home folder, the root and the mounted volumes.
std::vector<tRootFolder> RootFolders();

/// The mount points, in table order, of the volumes that matter to users: disks and network file systems, but
/// not what the system has mounted for its own purposes.
std::vector<std::string> MountedVolumes(std::istream& mountInfo);

} // namespace desktop

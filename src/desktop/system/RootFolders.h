// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace desktop {

/// A folder at the top of the folder tree.
struct tRootFolder {
    std::string sPath; ///< canonical, without a separator at the end but for the root's
    std::string sName; ///< as shown
};

/// Where a person's folders are found: the home folder, the root of everything, the mounted volumes.
std::vector<tRootFolder> RootFolders();

/// The mount points, in order, of the volumes that a person may look for, from the kernel's table of mounts:
/// disks and what lies on other machines, not what the system has mounted for itself.
std::vector<std::string> MountedVolumes(std::istream& mountInfo);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

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

} // namespace desktop

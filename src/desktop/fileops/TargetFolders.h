// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolder.h"

#include <map>
#include <string>
#include <vector>

namespace desktop {

/// A folder that files are brought to, held from the first one on.
struct tTargetFolder {
    FolderPtr pFolder;
    std::string sWhyNot;           ///< why no file can be brought there; empty if some can
    std::vector<std::string> done; ///< the paths that files have come from
};

/// All of them that an operation has.
class TargetFolders
{
public:
    /// The folder of this path, on which there must be no link.
    tTargetFolder& Get(const std::string& sPath);

    /// The paths of files that have been brought to a folder which is no longer where it was.
    [[nodiscard]] std::vector<std::string> Astray() const;

private:
    std::map<std::string, tTargetFolder> m_folders;
};

/// Brings a folder's entries to the disk; `hFile` is an open file in it. 0, or the system's error number.
int SyncFolder(const HeldFolder& folder, int hFile);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolder.h"

#include <map>
#include <string>
#include <vector>

namespace desktop {

/// A destination folder, held from its first file on.
struct tTargetFolder {
    FolderPtr pFolder;
    std::string sWhyNot;           ///< why no file can be put there; empty if possible
    std::vector<std::string> done; ///< the original paths of the files moved or copied there
};

/// The destination folders of an operation.
class TargetFolders
{
public:
    /// The folder with this path, which must not contain a link.
    tTargetFolder& Get(const std::string& sPath);

    /// The original paths of files that were put into a folder which is no longer where it was.
    [[nodiscard]] std::vector<std::string> Astray() const;

private:
    std::map<std::string, tTargetFolder> m_folders;
};

} // namespace desktop

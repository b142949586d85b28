// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"
#include "HeldFolder.h"

#include <cstddef>
#include <string>
#include <unordered_map>

namespace desktop {

/// The folders used by an operation. Each is opened once. If there are too many to hold all open, a folder
/// that is opened again must be the same one as before.
class HeldFolders
{
public:
    /// The folder that contains the file with this path. On failure it has an error number, ESTALE if it is
    /// another folder by now.
    FolderPtr Of(const std::string& sFilePath);

    /// The folder with this path.
    FolderPtr Get(const std::string& sFolder);

private:
    struct tKnown {
        tLook look{-1, {}}; ///< when it was first opened
        FolderPtr pHeld;
    };

    std::unordered_map<std::string, tKnown> m_known;
    std::size_t m_nHeld = 0;
};

} // namespace desktop

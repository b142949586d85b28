// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"
#include "HeldFolder.h"

#include <cstddef>
#include <string>
#include <unordered_map>

namespace desktop {

/// The folders that an operation has to do with. Each is opened once; where they are too many to be held all
/// at the same time, one that is opened again must be the one that it was.
class HeldFolders
{
public:
    /// The folder that the file of this path is in. Where it cannot be opened it says why, with ESTALE if it
    /// is another one by now.
    FolderPtr Of(const std::string& sFilePath);

    /// The folder of this path.
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

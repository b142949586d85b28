// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The file systems that the machine has mounted.
class Volumes
{
public:
    virtual ~Volumes() = default;

    /// What identifies the mounted file system that holds folder `sFolder`, whether or not the folder is
    /// still there: the same text for each folder of one file system, by whatever mount. Empty if it cannot
    /// be told.
    virtual std::string FileSystemOf(const std::string& sFolder) = 0;
};

} // namespace platform

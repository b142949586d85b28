// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The mounted file systems.
class Volumes
{
public:
    virtual ~Volumes() = default;

    /// Identifies the file system that contains folder `sFolder`, whether or not the folder still exists: the
    /// same text for all folders of a file system, through whatever mount. Empty if unknown.
    virtual std::string FileSystemOf(const std::string& sFolder) = 0;
};

} // namespace platform

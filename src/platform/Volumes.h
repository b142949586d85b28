// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// Result of the query for a volume's label.
struct tVolumeLabel {
    std::string sLabel; ///< empty if the volume has none
    std::string sError; ///< the error message without a full stop; empty on success
};

/// The mounted file systems.
class Volumes
{
public:
    virtual ~Volumes() = default;

    /// Identifies the file system that contains folder `sFolder`, whether or not the folder still exists: the
    /// same text for all folders of a file system, through whatever mount. Empty if unknown.
    virtual std::string FileSystemOf(const std::string& sFolder) = 0;

    /// The label of the file system that contains folder `sFolder`.
    virtual tVolumeLabel VolumeLabel(const std::string& sFolder) = 0;
};

} // namespace platform

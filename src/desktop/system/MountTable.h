// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// The kernel's table of the mounts visible to this process, proc(5).
inline constexpr const char* kMountInfo = "/proc/self/mountinfo";

/// An entry of the mount table.
struct tMount {
    std::string sDevice; ///< the device number, the same for all mounts of a file system
    std::string sFolder; ///< the mounted part of the file system, "/" for all of it
    std::string sPoint;  ///< the mount point, exact bytes; the other texts are as in the table
    std::string sType;
    std::string sSource;
};

/// Reads a mount table in its order. Of two mounts at one point the last one is visible. Incomplete lines are
/// skipped.
std::vector<tMount> ReadMountTable(std::istream& mountInfo);

/// The mount that contains folder `sFolder`, or null: after chroot the root may not be a mount point.
const tMount* HolderOf(const std::vector<tMount>& mounts, std::string_view sFolder);

/// True if `sPath` is `sFolder` or lies inside it. Neither may end in a separator, except for the root.
bool IsIn(std::string_view sPath, std::string_view sFolder);

} // namespace desktop

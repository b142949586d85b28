// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// The kernel's table of the mounts that this process sees, proc(5).
inline constexpr const char* kMountInfo = "/proc/self/mountinfo";

/// A line of the kernel's table of mounts.
struct tMount {
    std::string sDevice; ///< the file system's number, the same for all its mounts
    std::string sFolder; ///< what of the file system is mounted, "/" for all of it
    std::string sPoint;  ///< where, exact bytes; the other texts are as the table has them
    std::string sType;
    std::string sSource;
};

/// Reads such a table in its order: of two mounts at one point the last one is seen. A line that is cut short
/// is left out.
std::vector<tMount> ReadMountTable(std::istream& mountInfo);

/// True if `sPath` is `sFolder` or lies in it; neither ends in a separator, but for the root.
bool IsIn(std::string_view sPath, std::string_view sFolder);

} // namespace desktop

#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// A line of the kernel's table of mounts. Paths are exact bytes.
struct tMount {
    std::string sDevice; ///< the file system's number, the same for all its mounts
    std::string sFolder; ///< what of the file system is mounted, "/" for all of it
    std::string sPoint;  ///< where
    std::string sType;
    std::string sSource;
};

/// Reads the kernel's table of mounts, proc(5) /proc/pid/mountinfo, in its order: of two mounts at one point
/// the last one is seen. A line that is cut short is left out.
std::vector<tMount> ReadMountTable(std::istream& mountInfo);

/// True if `sPath` is `sFolder` or lies in it; neither ends in a separator, but for the root.
bool IsIn(std::string_view sPath, std::string_view sFolder);

} // namespace desktop

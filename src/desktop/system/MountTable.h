// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

/// An entry of the mount table.
struct tMount {
    std::string sDevice; ///< the device number, the same for all mounts of a file system
    std::string sFolder; ///< the mounted part of the file system, "/" for all of it
    std::string sPoint;  ///< the mount point, exact bytes; the other texts are as in the table
    std::string sType;
    std::string sSource;
};

/// The mounts visible to this process, as they were when the table was read.
class MountTable
{
public:
    /// The kernel's table, proc(5).
    static constexpr const char* kPath = "/proc/self/mountinfo";

    /// Reads the kernel's table.
    MountTable();

    /// Reads a table in the kernel's format. Incomplete lines are skipped.
    explicit MountTable(std::istream& mountInfo);

    /// The mount that contains folder `sFolder`; null if the table has none.
    [[nodiscard]] const tMount* HolderOf(std::string_view sFolder) const;

    /// True if a file system is mounted in two places, or if this is unknown: only then can two paths lead to
    /// the same folder.
    [[nodiscard]] bool AnyMountedTwice() const;

    /// The mount points, sorted, of the volumes that matter to users: disks and network file systems, but not
    /// what the system has mounted for its own purposes.
    [[nodiscard]] std::vector<std::string> Volumes() const;

private:
    std::vector<tMount> m_mounts; ///< in the order of the table: of two at one point the last one is visible
};

/// Decodes a name as the kernel and the device manager write it in tables and links, with bytes escaped as
/// "\040" or "\x20".
std::string Unescaped(std::string_view sText);

} // namespace desktop

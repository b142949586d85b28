// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

#include <cstdint>
#include <string>
#include <sys/stat.h>

namespace desktop {

using Status = struct stat;

/// Identifies a file and its state: the inode, and attributes that a write would change.
struct tFileIdentity {
    std::uint64_t nDevice = 0;
    std::uint64_t nInode = 0;
    std::int64_t cySize = 0;
    std::int64_t nSeconds = 0; ///< last modification
    std::int64_t nNanoseconds = 0;

    friend bool operator==(const tFileIdentity&, const tFileIdentity&) = default;
};

/// The modification time as shown in rows: days since 30 December 1899 in local time; 0 if unknown.
double DateOf(const tFileIdentity& identity);

/// The result of stat.
struct tLook {
    int nError = 0; ///< the error number; `status` is not set then
    Status status{};

    /// Valid only without an error.
    [[nodiscard]] tFileIdentity Identity() const;
    /// True if both found the same inode.
    [[nodiscard]] bool IsSameFileAs(const tLook& other) const;
};

/// Looks at the open descriptor `h`.
tLook LookAt(int h);

/// Looks at `sName` in the open folder `hFolder`, without following a link.
tLook LookAt(int hFolder, const std::string& sName);

/// Looks at a full path. Links in its folders are followed.
tLook LookAt(const std::string& sPath);

/// Done if `look` found a regular file.
tEnding IsRegular(const tLook& look);

/// Done if `look` found the regular file `expected`, not modified since.
tEnding IsStill(const tLook& look, const tFileIdentity& expected);

/// True if the open file `h` has been changed in any way since `before`, even if its times were set back.
/// False where the file system keeps no time of change.
bool IsTouched(int h, const Status& before);

} // namespace desktop

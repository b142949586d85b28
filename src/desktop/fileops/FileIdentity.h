// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

#include <cstdint>
#include <string>
#include <sys/stat.h>

namespace desktop {

using Status = struct stat;

/// By what a file is known again: which one it is, and what would differ had it been written to.
struct tFileIdentity {
    std::uint64_t nDevice = 0;
    std::uint64_t nInode = 0;
    std::int64_t cySize = 0;
    std::int64_t nSeconds = 0; ///< last write
    std::int64_t nNanoseconds = 0;

    friend bool operator==(const tFileIdentity&, const tFileIdentity&) = default;
};

/// The time of its last write as rows show it: days since 30 December 1899 in local time; 0 if unknown.
double DateOf(const tFileIdentity& identity);

/// What was found under a name.
struct tLook {
    int nError = 0; ///< the system's error number; then there is nothing in `status`
    Status status{};

    [[nodiscard]] tFileIdentity Identity() const;
    [[nodiscard]] bool IsSameFileAs(const tLook& other) const;
};

/// What the open descriptor `h` leads to.
tLook LookAt(int h);

/// What bears the name `sName` in the open folder `hFolder`, a link itself and not what it leads to.
tLook LookAt(int hFolder, const std::string& sName);

/// The same for a full path, by which links may be followed.
tLook LookAt(const std::string& sPath);

/// Done if `look` has found a regular file.
tEnding IsRegular(const tLook& look);

/// Done if `look` has found the regular file `expected`, not written to since.
tEnding IsStill(const tLook& look, const tFileIdentity& expected);

} // namespace desktop

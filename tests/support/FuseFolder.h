// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>

namespace support {

/// What a file system in user space does otherwise than others.
enum class Quirk {
    None,
    SaysSizeZero,  ///< of every file, also of those with contents
    FailsAtClose,  ///< what is written becomes zeros, and only the close says so
    HangsAtRead,   ///< for as long as it is mounted
    RenamesPlainly ///< knows neither a rename without replacing nor a second name for a file
};

/// The folder `sBehind` shown at `sMountPoint` by a file system with a quirk, while this object lives.
class FuseFolder
{
public:
    FuseFolder(const std::string& sBehind, std::string sMountPoint, Quirk quirk);
    FuseFolder& operator=(FuseFolder&&) = delete;
    ~FuseFolder();

    /// False where nobody may mount such a file system.
    [[nodiscard]] bool IsMounted() const;

private:
    std::string m_sMountPoint;
    dev_t m_nDeviceBefore;
    pid_t m_process;
};

} // namespace support

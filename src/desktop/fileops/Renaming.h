// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// A name in an open folder.
struct tName {
    int hFolder = -1;
    std::string sName;
};

/// Renames a file without ever replacing anything: EEXIST where the new name is taken. 0, or the system's
/// error number, the file then being where it was; only where the disk fails again on the way back it may
/// bear the new name.
///
/// Where the file system can only rename with replacing, the file gets the new name as a second one before it
/// loses the first. Where it cannot have two names either, an empty file takes the new name, and is replaced:
/// what another program puts in the place of that one between the last look and the rename is lost.
int RenameWithoutReplacing(const tName& from, const tName& to);

} // namespace desktop

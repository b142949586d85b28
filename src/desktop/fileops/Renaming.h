#pragma once

#include <string>

namespace desktop {

/// A name in an open folder, which may be AT_FDCWD for a path.
struct tName {
    int hFolder = -1;
    std::string sName;
};

/// Renames a file without ever replacing anything: EEXIST where the new name is taken. 0, or the system's
/// error number, the file then being where it was; EOPNOTSUPP where the file system can neither rename
/// without replacing nor give a file a second name.
int RenameWithoutReplacing(const tName& from, const tName& to);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// A name in an open folder.
struct tName {
    int hFolder = -1;
    std::string sName;
};

/// Renames a file without ever replacing anything: EEXIST if the new name is taken. Returns 0 or the error
/// number. On failure the file keeps its old name; only if the disk also fails during the rollback may it
/// have the new one.
///
/// On a file system that cannot rename without replacing, the file gets the new name as a second hard link
/// before it loses the first. Without hard links either, if they do not have the same inode number, or if the
/// first name is too long to be set aside, an empty file takes the new name and is then replaced: if another
/// program replaces that one between the last check and the rename, its file is lost.
int RenameWithoutReplacing(const tName& from, const tName& to);

} // namespace desktop

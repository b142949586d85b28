// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>

namespace desktop {

/// The extended attribute with a file's access control list, acl(5).
inline constexpr const char* kAccessListName = "system.posix_acl_access";

/// The access rights of a file.
struct tAccess {
    mode_t mode = 0;
    std::string list; ///< the access control list in the format of the attribute; empty if there is none
    bool bListDropped = false;

    /// Reduces the rights of the owning group and of others to those that both have.
    void MakeGroupLikeOthers();

    /// Drops the list. The group bits of the mode, which are the mask of the list while there is one, become
    /// the rights of the owning group, and nobody may have more rights than the users and groups named in the
    /// list.
    void DropList();
};

/// The access rights of an open file with this mode.
tAccess AccessOf(int h, mode_t mode);

} // namespace desktop

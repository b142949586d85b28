// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>

namespace desktop {

/// The attribute that holds a file's access control list, acl(5).
inline constexpr const char* kAccessListName = "system.posix_acl_access";

/// Who may do what with a file.
struct tAccess {
    mode_t mode = 0;
    std::string list; ///< the access control list as the attribute has it; empty if there is none
    bool bListDropped = false;

    /// The owning group and the others get what both have.
    void MakeGroupLikeOthers();

    /// Goes without the list: the group's part of the mode, which is the list's limit while there is one,
    /// becomes what the owning group has, and nobody gets more than whom the list names.
    void DropList();
};

/// That of an open file, whose mode is `mode`.
tAccess AccessOf(int h, mode_t mode);

} // namespace desktop

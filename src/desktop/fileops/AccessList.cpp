// SPDX-License-Identifier: MIT
#include "AccessList.h"

#include <cstdint>
#include <cstring>
#include <linux/limits.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <utility>

namespace desktop {
namespace {

using tEntry = posix_acl_xattr_entry;
constexpr std::size_t kHeader = sizeof(posix_acl_xattr_header);
constexpr mode_t kAll = S_IRWXO;

/// The kernel's tables are little-endian, like all machines that run desktops; on a big-endian machine no
/// entry is found.
tEntry EntryAt(const std::string& list, std::size_t n)
{
    tEntry entry{};
    std::memcpy(&entry, list.data() + n, sizeof entry);
    return entry;
}

/// The rights that all entries of this kind have in common; all rights if there is no such entry.
mode_t Allowed(const std::string& list, unsigned nTag)
{
    mode_t rights = kAll;
    for (std::size_t n = kHeader; n + sizeof(tEntry) <= list.size(); n += sizeof(tEntry)) {
        const tEntry entry = EntryAt(list, n);
        rights &= entry.e_tag == nTag ? entry.e_perm : kAll;
    }
    return rights;
}

void Allow(std::string& list, unsigned nTag, mode_t rights)
{
    for (std::size_t n = kHeader; n + sizeof(tEntry) <= list.size(); n += sizeof(tEntry)) {
        tEntry entry = EntryAt(list, n);
        if (entry.e_tag == nTag) {
            entry.e_perm = static_cast<std::uint16_t>(rights);
            std::memcpy(list.data() + n, &entry, sizeof entry);
        }
    }
}

mode_t OfGroup(mode_t mode)
{
    return (mode >> 3U) & kAll;
}

mode_t WithGroup(mode_t mode, mode_t rights)
{
    return (mode & ~static_cast<mode_t>(S_IRWXG)) | (rights << 3U);
}

} // namespace

void tAccess::MakeGroupLikeOthers()
{
    const mode_t group = OfGroup(mode) & (list.empty() ? kAll : Allowed(list, ACL_GROUP_OBJ));
    const mode_t both = group & mode & kAll;
    if (list.empty()) {
        mode = WithGroup(mode, both);
    } else {
        Allow(list, ACL_GROUP_OBJ, both);
        Allow(list, ACL_OTHER, both);
    }
    mode = (mode & ~kAll) | both;
}

void tAccess::DropList()
{
    // The users and groups named in the list then belong to the owning group or to others.
    const mode_t named = Allowed(list, ACL_USER) & Allowed(list, ACL_GROUP);
    mode = WithGroup(mode, OfGroup(mode) & Allowed(list, ACL_GROUP_OBJ) & named) & ~(kAll & ~named);
    list.clear();
    bListDropped = true;
}

tAccess AccessOf(int h, mode_t mode)
{
    tAccess access{mode & ALLPERMS, std::string(XATTR_SIZE_MAX, '\0')};
    const ssize_t nSize = fgetxattr(h, kAccessListName, access.list.data(), access.list.size());
    access.list.resize(nSize > 0 ? static_cast<std::size_t>(nSize) : 0);
    return access;
}

} // namespace desktop

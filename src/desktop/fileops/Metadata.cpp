// SPDX-License-Identifier: MIT
#include "Metadata.h"

#include "AccessList.h"
#include "Reasons.h"
#include "Retried.h"

#include <array>
#include <climits>
#include <linux/limits.h>
#include <string>
#include <string_view>
#include <sys/statvfs.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace desktop {
namespace {

/// Used in place of an error number: the file system has no space for the attributes.
constexpr int kNoRoom = -1;

/// 0 also for what the destination does not support or permit.
int Judged(int nResult)
{
    if (nResult == 0) {
        return 0;
    }
    switch (errno) {
    case EPERM:
    case EACCES:
    case EOPNOTSUPP:
    case EINVAL:
    case ENOSYS:
    case ENODATA:
    case ERANGE:
    case E2BIG:
        return 0;
    default:
        return errno;
    }
}

int KeepOwner(int hTo, const Status& status)
{
    const tLook made = LookAt(hTo);
    if (made.nError != 0) {
        return made.nError;
    }
    if (made.status.st_uid == status.st_uid && made.status.st_gid == status.st_gid) {
        return 0;
    }
    if (Retried([&] { return fchown(hTo, status.st_uid, status.st_gid); }) == 0) {
        return 0;
    }
    // A user who may not change the owner may still set the group to another group of their own.
    return Judged(Retried([&] { return fchown(hTo, static_cast<uid_t>(-1), status.st_gid); }));
}

/// True if the disk has free space: then it is the attribute space of the file that is full.
bool HasRoom(int h)
{
    constexpr unsigned long kEnough = 64;
    struct statvfs disk = {};
    return fstatvfs(h, &disk) == 0 && disk.f_bavail >= kEnough;
}

int KeepAttribute(int hFrom, int hTo, const char* pName, std::vector<char>& value)
{
    value.resize(XATTR_SIZE_MAX);
    const ssize_t nSize = fgetxattr(hFrom, pName, value.data(), value.size());
    if (nSize < 0) {
        return Judged(-1);
    }
    const int nResult =
        Retried([&] { return fsetxattr(hTo, pName, value.data(), static_cast<std::size_t>(nSize), 0); });
    return nResult != 0 && errno == ENOSPC && HasRoom(hTo) ? kNoRoom : Judged(nResult);
}

int KeepAttributes(int hFrom, int hTo)
{
    // A default list of the destination folder could give rights to users without rights on the original.
    const int nError = Judged(Retried([&] { return fremovexattr(hTo, kAccessListName); }));
    const ssize_t nSize = flistxattr(hFrom, nullptr, 0);
    if (nError != 0 || nSize <= 0) {
        return nError != 0 || nSize == 0 ? nError : Judged(-1);
    }
    std::string sNames(XATTR_LIST_MAX, '\0');
    const ssize_t nLength = flistxattr(hFrom, sNames.data(), sNames.size());
    if (nLength < 0) {
        return Judged(-1);
    }
    sNames.resize(static_cast<std::size_t>(nLength));
    std::vector<char> value;
    for (std::size_t n = 0; n < sNames.size(); n = sNames.find('\0', n) + 1) {
        // Access rights are set later, all at once.
        if (std::string_view(sNames.c_str() + n) == kAccessListName) {
            continue;
        }
        const int nFailed = KeepAttribute(hFrom, hTo, sNames.c_str() + n, value);
        if (nFailed != 0) {
            return nFailed;
        }
    }
    return 0;
}

/// The rights of the copy: those of the original, reduced so that nobody else gets access.
tAccess NarrowedAccess(int hFrom, const Status& status, const Status& made)
{
    tAccess access = AccessOf(hFrom, status.st_mode);
    if (made.st_uid != status.st_uid || made.st_gid != status.st_gid) {
        access.mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
    }
    // Members of the new group had the rights of others before, and members of the old group have them now.
    if (made.st_gid != status.st_gid) {
        access.MakeGroupLikeOthers();
    }
    return access;
}

/// Sets the access rights. Done with a reason says which could not be kept.
tEnding KeepAccess(int hFrom, int hTo, const Status& status)
{
    const tLook made = LookAt(hTo);
    if (made.nError != 0) {
        return tEnding::NotDone(Reason(made.nError, Step::Write));
    }
    tAccess access = NarrowedAccess(hFrom, status, made.status);
    int nError = 0;
    if (!access.list.empty()) {
        const int nResult = Retried(
            [&] { return fsetxattr(hTo, kAccessListName, access.list.data(), access.list.size(), 0); });
        if (nResult != 0) {
            nError = errno == ENOSPC && HasRoom(hTo) ? 0 : Judged(nResult);
            access.DropList();
        }
    }
    nError = nError != 0 ? nError : Judged(Retried([&] { return fchmod(hTo, access.mode); }));
    const tLook now = LookAt(hTo);
    nError = nError != 0 ? nError : now.nError;
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Write));
    }
    constexpr mode_t kReadAndWrite = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const mode_t lost = status.st_mode & ~now.status.st_mode & kReadAndWrite;
    const mode_t gained = now.status.st_mode & ~access.mode & kReadAndWrite;
    return {tEnding::Kind::Done,
            gained != 0 ? "The destination cannot keep its access rights: others may read or change it there."
            : lost != 0 || access.bListDropped
                ? "Not all of its access rights could be kept at the destination: fewer may use it there."
                : ""};
}

} // namespace

tEnding KeepMetadata(int hFrom, int hTo, const Status& status)
{
    // The owner comes first, since changing it clears mode bits. The mode comes later, since it opens the
    // file to others, and the times last.
    int nError = KeepOwner(hTo, status);
    if (nError == 0) {
        nError = KeepAttributes(hFrom, hTo);
    }
    if (nError != 0) {
        return tEnding::NotDone(nError == kNoRoom ? "The destination has no room for its extended attributes."
                                                  : Reason(nError, Step::Write));
    }
    tEnding kept = KeepAccess(hFrom, hTo, status);
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    if (kept.IsDone()) {
        nError = Judged(Retried([&] { return futimens(hTo, times.data()); }));
    }
    return nError == 0 ? kept : tEnding::NotDone(Reason(nError, Step::Write));
}

} // namespace desktop

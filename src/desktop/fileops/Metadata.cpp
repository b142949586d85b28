#include "Metadata.h"

#include "Retried.h"

#include <array>
#include <climits>
#include <linux/limits.h>
#include <string>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace desktop {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

/// 0 also for what the destination does not know or permit.
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
    // Who may not give a file away may still give it to another group of his.
    return Judged(Retried([&] { return fchown(hTo, static_cast<uid_t>(-1), status.st_gid); }));
}

int KeepAttribute(int hFrom, int hTo, const char* pName, std::vector<char>& value)
{
    value.resize(XATTR_SIZE_MAX);
    const ssize_t nSize = fgetxattr(hFrom, pName, value.data(), value.size());
    if (nSize < 0) {
        return Judged(-1);
    }
    return Judged(
        Retried([&] { return fsetxattr(hTo, pName, value.data(), static_cast<std::size_t>(nSize), 0); }));
}

int KeepAttributes(int hFrom, int hTo)
{
    // What the destination folder bequeaths would let in others than the original does.
    const int nError = Judged(Retried([&] { return fremovexattr(hTo, kAccessList); }));
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
        const int nFailed = KeepAttribute(hFrom, hTo, sNames.c_str() + n, value);
        if (nFailed != 0) {
            return nFailed;
        }
    }
    return 0;
}

int KeepMode(int hTo, const Status& status)
{
    const tLook made = LookAt(hTo);
    if (made.nError != 0) {
        return made.nError;
    }
    mode_t mode = status.st_mode & ALLPERMS;
    if (made.status.st_uid != status.st_uid || made.status.st_gid != status.st_gid) {
        mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
    }
    return Judged(Retried([&] { return fchmod(hTo, mode); }));
}

} // namespace

int KeepMetadata(int hFrom, int hTo, const Status& status)
{
    // The owner first: a change of it takes rights away. The mode opens the file to others, the times last.
    int nError = KeepOwner(hTo, status);
    if (nError == 0) {
        nError = KeepAttributes(hFrom, hTo);
    }
    if (nError == 0) {
        nError = KeepMode(hTo, status);
    }
    if (nError == 0) {
        const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
        nError = Judged(Retried([&] { return futimens(hTo, times.data()); }));
    }
    return nError;
}

} // namespace desktop

// SPDX-License-Identifier: MIT
#include "SystemCalls.h"

#include "Paths.h"
#include "Retried.h"

#include <algorithm>
#include <fcntl.h>
#include <linux/openat2.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr int kPlace = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// The C library has no wrapper for this call.
int OpenWithoutLinks(const std::string& sPath)
{
    open_how how{};
    how.flags = static_cast<std::uint64_t>(kPlace);
    how.resolve = RESOLVE_NO_SYMLINKS;
    return static_cast<int>(
        Retried([&] { return syscall(SYS_openat2, AT_FDCWD, sPath.c_str(), &how, sizeof how); }));
}

/// The same with older calls, which also work for paths longer than the system's limit.
Descriptor OpenStepByStep(std::string_view sPath, int& nError)
{
    Descriptor folder(Retried([] { return open("/", kPlace); }));
    nError = folder.IsOpen() ? 0 : errno;
    while (nError == 0 && !sPath.empty()) {
        const std::size_t nEnd = std::min(sPath.find(platform::kSeparator), sPath.size());
        const std::string sName(sPath.substr(0, nEnd));
        sPath.remove_prefix(std::min(nEnd + 1, sPath.size()));
        if (sName.empty()) {
            continue;
        }
        Descriptor next(Retried([&] { return openat(folder.Get(), sName.c_str(), kPlace | O_NOFOLLOW); }));
        if (!next.IsOpen()) {
            nError = errno;
            struct stat status = {};
            if (nError == ENOTDIR &&
                fstatat(folder.Get(), sName.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                S_ISLNK(status.st_mode)) {
                nError = ELOOP;
            }
        }
        folder = std::move(next);
    }
    return nError == 0 ? std::move(folder) : Descriptor();
}

} // namespace

Descriptor OpenFolder(const std::string& sPath, int& nError)
{
    Descriptor folder(OpenWithoutLinks(sPath));
    nError = folder.IsOpen() ? 0 : errno;
    // An old kernel does not have the call, and a container may deny it.
    const bool bOtherwise = nError == ENOSYS || nError == EPERM || nError == ENAMETOOLONG;
    return bOtherwise && sPath.starts_with(platform::kSeparator) ? OpenStepByStep(sPath, nError)
                                                                 : std::move(folder);
}

} // namespace desktop

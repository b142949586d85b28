// SPDX-License-Identifier: MIT
#include "LaunchCode.h"

#include "SystemMessages.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <utility>

namespace desktop {

static_assert(kNoSuchFile == ENOENT);

namespace {

/// Error numbers above 30 that a path or a start can produce, with the number up to 30 that is closest in
/// meaning.
constexpr std::array<std::pair<int, int>, 31> kNearest = {{
    {ENAMETOOLONG, ENOENT}, // such a path cannot exist
    {ELOOP, ENOENT},
    {ESTALE, ENOENT},
    {ELIBACC, ENOENT},
    {ELIBBAD, ENOEXEC},
    {ELIBEXEC, ENOEXEC},
    {ELIBMAX, ENOEXEC},
    {ENOKEY, EACCES},
    {EKEYEXPIRED, EACCES},
    {EKEYREVOKED, EACCES},
    {EKEYREJECTED, EACCES},
    {EOPNOTSUPP, EPERM},
    {ENOSYS, EPERM},
    {EOVERFLOW, EFBIG},
    {EDQUOT, ENOSPC},
    {ENOBUFS, ENOMEM},
    {EUSERS, EAGAIN},
    {ENOLCK, EAGAIN},
    {EDEADLK, EBUSY},
    {EALREADY, EBUSY},
    {EINPROGRESS, EBUSY},
    {ECANCELED, EINTR},
    {ENOTEMPTY, EEXIST},
    {EDOM, EINVAL},
    {ERANGE, EINVAL},
    {EILSEQ, EINVAL},
    {ENOMEDIUM, ENXIO},
    {ENOTCONN, ENXIO}, // remote files, or files that are
                       // served by a program
    {EHOSTDOWN, ENXIO},
    {EHOSTUNREACH, ENXIO},
    {ENETUNREACH, ENXIO},
}};

} // namespace

long LaunchCode(int nError)
{
    constexpr int kLast = 30; // from 31 on, the shell defines codes of its own
    if (nError > 0 && nError <= kLast) {
        return nError;
    }
    const auto* const pNearest = std::find_if(kNearest.begin(), kNearest.end(),
                                              [&](const auto& each) { return each.first == nError; });
    return pNearest == kNearest.end() ? EIO : pNearest->second;
}

long WhyMissing(const std::string& sPath)
{
    if (!sPath.starts_with('/')) {
        return kNoSuchFile;
    }
    struct stat status = {};
    return stat(sPath.c_str(), &status) == 0 ? 0 : LaunchCode(errno);
}

std::string CodeInWords(long nCode)
{
    return nCode == kNoTerminal ? "It runs in a terminal, and none is installed."
                                : platform::SystemMessage(nCode);
}

} // namespace desktop

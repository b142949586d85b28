#include "Renaming.h"

#include "Retried.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

/// For file systems that can only rename with replacing: a second name replaces nothing either.
int LinkAndUnlink(const tName& from, const tName& to)
{
    const char* pFrom = from.sName.c_str();
    const char* pTo = to.sName.c_str();
    // 1. The second name.
    if (Retried([&] { return linkat(from.hFolder, pFrom, to.hFolder, pTo, 0); }) != 0) {
        return errno == EPERM || errno == EINVAL || errno == ENOSYS ? EOPNOTSUPP : errno;
    }
    // 2. The first name goes.
    if (Retried([&] { return unlinkat(from.hFolder, pFrom, 0); }) == 0) {
        return 0;
    }
    // 3. It stays, so the second one goes again.
    const int nError = errno;
    Retried([&] { return unlinkat(to.hFolder, pTo, 0); });
    return nError;
}

} // namespace

int RenameWithoutReplacing(const tName& from, const tName& to)
{
    const int nResult = Retried([&] {
        return renameat2(from.hFolder, from.sName.c_str(), to.hFolder, to.sName.c_str(), RENAME_NOREPLACE);
    });
    if (nResult == 0) {
        return 0;
    }
    return errno == EINVAL || errno == ENOSYS ? LinkAndUnlink(from, to) : errno;
}

} // namespace desktop

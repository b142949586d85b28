// SPDX-License-Identifier: MIT
#include "FileIdentity.h"

#include "FileTime.h"
#include "FolderEntry.h"
#include "Paths.h"
#include "Reasons.h"

#include <fcntl.h>

namespace desktop {
namespace {

tLook Looked(int nResult, const Status& status)
{
    return nResult == 0 ? tLook{0, status} : tLook{errno, {}};
}

} // namespace

double DateOf(const tFileIdentity& identity)
{
    const auto stTime = platform::LocalTime({identity.nSeconds});
    return stTime ? platform::DateValue(*stTime) : 0;
}

tFileIdentity tLook::Identity() const
{
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

bool tLook::IsSameFileAs(const tLook& other) const
{
    return nError == 0 && other.nError == 0 && status.st_dev == other.status.st_dev &&
           status.st_ino == other.status.st_ino;
}

tLook LookAt(int h)
{
    Status status{};
    return Looked(fstat(h, &status), status);
}

tLook LookAt(int hFolder, const std::string& sName)
{
    Status status{};
    return Looked(fstatat(hFolder, sName.c_str(), &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT), status);
}

tLook LookAt(const std::string& sPath)
{
    const tLook look = LookAt(AT_FDCWD, sPath);
    if (look.nError != ENAMETOOLONG) {
        return look;
    }
    const std::string sName = platform::NameIn(sPath);
    const std::string sFolder = sPath.substr(0, sPath.size() - sName.size());
    return FolderEntry(std::make_shared<HeldFolder>(sFolder), sName).Look();
}

tEnding IsRegular(const tLook& look)
{
    if (look.nError != 0) {
        return tEnding::NotDone(Reason(look.nError, Step::Read));
    }
    if (S_ISREG(look.status.st_mode)) {
        return {};
    }
    return tEnding::NotDone(S_ISDIR(look.status.st_mode)   ? "It has become a folder."
                            : S_ISLNK(look.status.st_mode) ? "It has become a link."
                                                           : "It is no longer an ordinary file.");
}

tEnding IsStill(const tLook& look, const tFileIdentity& expected)
{
    tEnding regular = IsRegular(look);
    if (!regular.IsDone() || look.Identity() == expected) {
        return regular;
    }
    return tEnding::NotDone("It has changed in the meantime.");
}

bool IsTouched(int h, const Status& before)
{
    const tLook now = LookAt(h);
    return now.nError != 0 || now.status.st_ctim.tv_sec != before.st_ctim.tv_sec ||
           now.status.st_ctim.tv_nsec != before.st_ctim.tv_nsec;
}

} // namespace desktop

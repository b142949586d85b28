// SPDX-License-Identifier: MIT
#include "Renaming.h"

#include "Descriptor.h"
#include "FileIdentity.h"
#include "HiddenName.h"
#include "Retried.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

int Rename(const tName& from, const tName& to, unsigned nFlags)
{
    const int nResult = Retried(
        [&] { return renameat2(from.hFolder, from.sName.c_str(), to.hFolder, to.sName.c_str(), nFlags); });
    return nResult == 0 ? 0 : errno;
}

int Link(const tName& from, const tName& to)
{
    const int nResult =
        Retried([&] { return linkat(from.hFolder, from.sName.c_str(), to.hFolder, to.sName.c_str(), 0); });
    return nResult == 0 ? 0 : errno;
}

int Unlink(const tName& name)
{
    return Retried([&] { return unlinkat(name.hFolder, name.sName.c_str(), 0); }) == 0 ? 0 : errno;
}

tLook Look(const tName& name)
{
    return LookAt(name.hFolder, name.sName);
}

/// Renames a file that was set aside back. If this cannot be done safely, accepts the short gap between the
/// check and the rename.
int Restore(const tName& aside, const tName& name)
{
    int nError = Link(aside, name);
    if (nError == 0) {
        Unlink(aside);
    } else if (Look(name).nError == ENOENT) {
        nError = Rename(aside, name, 0);
    }
    return nError;
}

/// Removes the first of a file's two names, unless one of them belongs to another file by now. On failure
/// restores the first name if possible.
int DropFirstName(const tName& first, const tName& second)
{
    // No other program knows these names.
    if (IsHiddenName(first.sName, HiddenKind::Copy) || IsHiddenName(first.sName, HiddenKind::Source)) {
        return Unlink(first);
    }
    const tName aside{first.hFolder, HiddenName(HiddenKind::Source, first.sName)};
    int nError = aside.sName.empty() ? EAGAIN : Rename(first, aside, 0);
    if (nError != 0) {
        return nError;
    }
    nError = Look(aside).IsSameFileAs(Look(second)) ? Unlink(aside) : ESTALE;
    if (nError != 0) {
        Restore(aside, first);
    }
    return nError;
}

/// True if both are regular files that differ in nothing but the inode number.
bool IsSameButForNumber(const tLook& linked, const tLook& before)
{
    if (linked.nError != 0 || before.nError != 0 || linked.IsSameFileAs(before)) {
        return false;
    }
    tFileIdentity expected = before.Identity();
    expected.nInode = linked.Identity().nInode;
    return IsStill(linked, expected).IsDone();
}

/// Creating a second link does not replace anything, either. EOPNOTSUPP if the two names of a file cannot be
/// recognised as such.
int LinkAndUnlink(const tName& from, const tName& to)
{
    const tLook before = Look(from);
    int nError = Link(from, to);
    if (nError != 0) {
        return nError;
    }
    const tLook linked = Look(to);
    // Some file systems in user space give each name a number of its own.
    if (IsSameButForNumber(linked, before)) {
        if (IsStill(Look(to), linked.Identity()).IsDone()) {
            Unlink(to);
        }
        return EOPNOTSUPP;
    }
    nError = DropFirstName(from, to);
    // If another program has reused or removed the first name, its change to the file takes effect as if
    // there had never been a second name.
    const bool bOthersActed = nError == ESTALE || nError == ENOENT;
    if (nError != 0 && Look(to).IsSameFileAs(bOthersActed ? linked : Look(from))) {
        Unlink(to);
    }
    return nError;
}

/// Replaces only the empty file that was created for this purpose.
int RenameOverPlaceholder(const tName& from, const tName& to)
{
    constexpr int nFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const Descriptor placeholder(
        Retried([&] { return openat(to.hFolder, to.sName.c_str(), nFlags, S_IRUSR | S_IWUSR); }));
    if (!placeholder.IsOpen()) {
        return errno;
    }
    const tLook made = LookAt(placeholder.Get());
    const auto isOurs = [&] {
        const tLook now = Look(to);
        return now.IsSameFileAs(made) && now.status.st_size == 0;
    };
    const int nError = isOurs() ? Rename(from, to, 0) : EEXIST;
    if (nError != 0 && isOurs()) {
        Unlink(to);
    }
    return nError;
}

} // namespace

int RenameWithoutReplacing(const tName& from, const tName& to)
{
    int nError = Rename(from, to, RENAME_NOREPLACE);
    if (nError != EINVAL && nError != ENOSYS) {
        return nError;
    }
    nError = LinkAndUnlink(from, to);
    // ENAMETOOLONG: the first name is too long to be set aside.
    constexpr std::array kNoLinks{EPERM, EINVAL, ENOSYS, EOPNOTSUPP, EMLINK, ENAMETOOLONG};
    const bool bNoLinks = std::find(kNoLinks.begin(), kNoLinks.end(), nError) != kNoLinks.end();
    return bNoLinks ? RenameOverPlaceholder(from, to) : nError;
}

} // namespace desktop

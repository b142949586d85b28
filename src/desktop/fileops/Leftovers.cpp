// SPDX-License-Identifier: MIT
#include "Leftovers.h"

#include "FolderReader.h"
#include "HiddenName.h"
#include "Reasons.h"
#include "Renaming.h"
#include "Retried.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace desktop {
namespace {

/// Renames a source that was set aside back to `sOriginal` in the folder.
void PutBack(const HeldFolder& folder, const tName& aside, const std::string& sOriginal,
             std::vector<tNotDone>& left)
{
    // The source may belong to another user: write access to the folder is enough to move it.
    const Descriptor file = Inherited(aside.hFolder, aside.sName, true);
    const int nError = file.IsOpen() ? RenameWithoutReplacing(aside, {folder.Get(), sOriginal}) : 0;
    if (nError == 0) {
        return;
    }
    // Where a rename takes several steps, the run may have ended with both names on the file, or with an
    // empty placeholder for the hidden name. A source is removed only when its copy is safe, so an empty one
    // whose name belongs to another file need not be kept either.
    const tLook look = LookAt(file.Get());
    const tLook taken = LookAt(folder.Get(), sOriginal);
    if (taken.nError == 0 && (taken.IsSameFileAs(look) || (look.nError == 0 && look.status.st_size == 0))) {
        unlinkat(aside.hFolder, aside.sName.c_str(), 0);
        return;
    }
    left.push_back(
        {folder.Path() + '/' + aside.sName,
         "An interrupted move has left it here. " +
             (nError == EEXIST ? "Its name is taken by another file." : Reason(nError, Step::Remove))});
}

/// The only file in a folder that was created for a source whose name is too long for a hidden name; empty if
/// the folder is not of that kind. Another user may have given any folder such a name.
std::string OnlyFileIn(int hFolder)
{
    const tLook look = LookAt(hFolder);
    const auto inside = NamesIn(hFolder, [](std::string_view) { return true; });
    const bool bMade = look.nError == 0 && look.status.st_uid == geteuid() &&
                       (look.status.st_mode & ALLPERMS) == S_IRWXU && inside.size() == 1;
    const long nMost = fpathconf(hFolder, _PC_NAME_MAX);
    const bool bLong =
        bMade && nMost > 0 &&
        HiddenName(HiddenKind::Source, inside.front()).size() > static_cast<std::size_t>(nMost);
    return bLong ? inside.front() : "";
}

void PutBackSource(const HeldFolder& folder, const std::string& sName, std::vector<tNotDone>& left)
{
    const std::string_view sOriginal = OriginalName(sName);
    if (!sOriginal.empty()) {
        PutBack(folder, {folder.Get(), sName}, std::string(sOriginal), left);
        return;
    }
    const Descriptor aside(Retried([&] {
        return openat(folder.Get(), sName.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }));
    if (!aside.IsOpen()) {
        return;
    }
    if (const std::string sInside = OnlyFileIn(aside.Get()); !sInside.empty()) {
        PutBack(folder, {aside.Get(), sInside}, sInside, left);
    }
    // Fails if it is not empty.
    unlinkat(folder.Get(), sName.c_str(), AT_REMOVEDIR);
}

} // namespace

std::vector<std::string> NamesIn(int hFolder, bool (*wanted)(std::string_view))
{
    std::vector<std::string> names;
    const Descriptor again = Reopened(hFolder);
    FolderReader reader;
    reader.Start(again.Get());
    while (const dirent64* const pEntry = reader.Next()) {
        if (wanted(pEntry->d_name)) {
            names.emplace_back(pEntry->d_name);
        }
    }
    return names;
}

Descriptor Inherited(int hFolder, const std::string& sName, bool bAnyUsers)
{
    constexpr int nFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor file(Retried([&] { return openat(hFolder, sName.c_str(), nFlags); }));
    if (!file.IsOpen()) {
        return file;
    }
    const tLook look = LookAt(file.Get());
    const bool bOurs = look.nError == 0 && S_ISREG(look.status.st_mode) &&
                       (bAnyUsers || look.status.st_uid == geteuid() || geteuid() == 0);
    const bool bFree = bOurs && Retried([&] { return flock(file.Get(), LOCK_EX | LOCK_NB); }) == 0;
    // Before the lock, the owner may have renamed it.
    return bFree && LookAt(hFolder, sName).IsSameFileAs(look) ? std::move(file) : Descriptor();
}

void ClearLeftovers(const HeldFolder& folder, std::vector<tNotDone>& left,
                    const std::function<bool(const std::string&)>& isOthers)
{
    const auto isOurs = [](std::string_view sName) {
        return IsHiddenName(sName, HiddenKind::Copy) || IsHiddenName(sName, HiddenKind::Source);
    };
    for (const std::string& sName : NamesIn(folder.Get(), isOurs)) {
        if (isOthers(sName)) {
            continue;
        }
        if (IsHiddenName(sName, HiddenKind::Source)) {
            PutBackSource(folder, sName, left);
        } else if (const Descriptor file = Inherited(folder.Get(), sName); file.IsOpen()) {
            unlinkat(folder.Get(), sName.c_str(), 0);
        }
    }
}

} // namespace desktop

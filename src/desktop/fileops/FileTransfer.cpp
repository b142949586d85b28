#include "FileTransfer.h"

#include "FileCopier.h"
#include "FileSystem.h"
#include "Metadata.h"
#include "Reasons.h"
#include "Retried.h"
#include "TrashCan.h"

#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

bool MayChange(int hFolder)
{
    return faccessat(hFolder, ".", W_OK | X_OK, AT_EACCESS) == 0;
}

/// Why a file cannot be taken out of its folder, as far as that can be known beforehand: the system's error
/// number, or 0.
int WhyNotRemovable(const FolderEntry& file)
{
    // 1. A folder that is not to change.
    if (!MayChange(file.Folder())) {
        return errno;
    }
    // 2. In a folder of all users, what is another's.
    const tLook folder = LookAt(file.Folder());
    const tLook look = file.Look();
    const uid_t me = geteuid();
    if (me != 0 && folder.nError == 0 && (folder.status.st_mode & S_ISVTX) != 0 &&
        folder.status.st_uid != me && look.nError == 0 && look.status.st_uid != me) {
        return EPERM;
    }
    // 3. A file that is locked against any change.
    struct statx status {
    };
    constexpr std::uint64_t nLocked = STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
    const int nResult = statx(file.Folder(), file.Name().c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
                              STATX_BASIC_STATS, &status);
    return nResult == 0 && (status.stx_attributes & nLocked) != 0 ? EPERM : 0;
}

/// What came of giving a file its new name.
struct tPlacing {
    tEnding ending;
    bool bOtherVolume = false; ///< not done, nothing touched: the name is on another volume
};

/// What is given a name.
struct tOrigin {
    tName name;
    const tFileIdentity* pExpected; ///< the file that it must still be; none for one of our own making
};

/// Renames. 0, or the system's error number, or `ending` says why not.
int RenameIfStill(const tOrigin& from, const tName& to, tEnding& ending)
{
    if (from.pExpected != nullptr) {
        ending = IsStill(LookAt(from.name.hFolder, from.name.sName), *from.pExpected);
        if (!ending.IsDone()) {
            return 0;
        }
    }
    const int nError = RenameWithoutReplacing(from.name, to);
    if (nError != 0) {
        // Which of the two folders is it that the user may not change?
        const bool bRemove =
            nError == EPERM ? MayChange(to.hFolder) : nError == EACCES && !MayChange(from.name.hFolder);
        ending = tEnding::NotDone(Reason(nError, bRemove ? Step::Remove : Step::Write));
    }
    return nError;
}

/// Gives `from` the name `to`, the file `replaced` of path `sTarget` going to the trash.
tPlacing Place(const tOrigin& from, const tName& to, const std::string& sTarget,
               const std::optional<tFileIdentity>& replaced)
{
    // 1. Without replacing: this also tells, before anything is touched, whether it can be done at all.
    tEnding ending;
    const int nError = RenameIfStill(from, to, ending);
    if (nError != EEXIST || !replaced) {
        return {ending, nError == EXDEV};
    }
    // 2. The old file makes room.
    tTrashed trashed;
    ending = TrashCan::Put(sTarget, *replaced, trashed);
    if (!ending.IsDone()) {
        return {
            tEnding::NotDone("The file that is there cannot be put into the trash first. " + ending.sReason)};
    }
    // 3. Again. If that fails, the old file comes back.
    const int nAgain = RenameIfStill(from, to, ending);
    const bool bUntouched = !ending.IsDone() && TrashCan::PutBack(trashed);
    if (!ending.IsDone() && !bUntouched) {
        ending.sReason += " The file that was there is in the trash.";
    }
    return {ending, nAgain == EXDEV && bUntouched};
}

} // namespace

tEnding FileTransfer::Carry(const tPlannedFile& file, const ProgressCall& goOn)
{
    const std::size_t nName = file.sTarget.rfind(platform::kSeparator) + 1;
    tEnding ending = m_folder.Open(file.sTarget.substr(0, nName));
    if (!ending.IsDone()) {
        return ending;
    }
    tJob job{file, goOn, FolderEntry(file.sPath), {m_folder.Get(), file.sTarget.substr(nName)}, {}};
    ending = Settle(job);
    if (!ending.IsDone()) {
        return ending;
    }
    ending = m_bMove ? Move(job) : Copy(job);
    ending.bReplaced = job.replaced.has_value();
    return ending;
}

tEnding FileTransfer::Move(const tJob& job)
{
    tPlacing placing = Place({{job.source.Folder(), job.source.Name()}, &job.file.identity}, job.target,
                             job.file.sTarget, job.replaced);
    return placing.bOtherVolume ? Copy(job) : std::move(placing.ending);
}

/// Settles whether the file is to go there at all: what stands there is itself, or no file, or is to stay.
tEnding FileTransfer::Settle(tJob& job)
{
    const tLook source = job.source.Look();
    tEnding ending = IsStill(source, job.file.identity);
    if (!ending.IsDone()) {
        return ending;
    }
    const tLook target = LookAt(job.target.hFolder, job.target.sName);
    if (target.nError == ENOENT) {
        return {};
    }
    if (target.nError != 0) {
        return tEnding::NotDone(Reason(target.nError, Step::Write));
    }
    if (source.IsSameFileAs(target)) {
        const bool bSameEntry = job.source.Name() == job.target.sName &&
                                LookAt(job.source.Folder()).IsSameFileAs(LookAt(job.target.hFolder));
        return tEnding::NotDone(bSameEntry ? "It is in that folder already."
                                           : "It is in that folder already, as one file with two names.");
    }
    if (!S_ISREG(target.status.st_mode)) {
        return tEnding::NotDone(S_ISDIR(target.status.st_mode)
                                    ? "There is a folder of its name at the destination."
                                    : "There is something of its name at the destination that is no file.");
    }
    const auto compare = [&] { return CompareWithTarget(job, target); };
    switch (m_questions.Ask(job.file.sPath, source, job.file.sTarget, target, compare)) {
    case tReplaceAnswer::Choice::Replace:
        job.replaced = target.Identity();
        return {};
    case tReplaceAnswer::Choice::Cancel:
        return {tEnding::Kind::Cancelled, {}};
    case tReplaceAnswer::Choice::Skip:
        break;
    }
    return {tEnding::Kind::Skipped, {}};
}

/// Whether the file and the one in its way, `target`, have the same contents.
ContentComparison::Result FileTransfer::CompareWithTarget(const tJob& job, const tLook& target)
{
    if (target.status.st_size != job.file.identity.cySize) {
        return ContentComparison::Result::Different;
    }
    int nError = 0;
    const Descriptor from = job.source.Open(O_RDONLY | O_NONBLOCK, nError);
    const Descriptor to = FolderEntry(job.file.sTarget).Open(O_RDONLY | O_NONBLOCK, nError);
    const bool bSame = IsStill(LookAt(from.Get()), job.file.identity).IsDone() &&
                       IsStill(LookAt(to.Get()), target.Identity()).IsDone();
    return bSame ? m_comparison.Compare(from.Get(), to.Get(), job.goOn)
                 : ContentComparison::Result::Different;
}

tEnding FileTransfer::Copy(const tJob& job)
{
    // 1. A move that could not be finished is not begun.
    int nError = m_bMove ? WhyNotRemovable(job.source) : 0;
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Remove));
    }
    // 2. The file that was meant, whatever its name leads to by now.
    const Descriptor source = job.source.Open(O_RDONLY | O_NONBLOCK, nError);
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Read));
    }
    const tLook before = LookAt(source.Get());
    tEnding ending = IsStill(before, job.file.identity);
    if (!ending.IsDone()) {
        return ending;
    }
    // 3. Everything of it, under a temporary name.
    TemporaryFile made(m_folder);
    if (made.Error() != 0) {
        return tEnding::NotDone(Reason(made.Error(), Step::Write));
    }
    ending = Fill(job, source.Get(), before.status, made);
    // 4. Its name.
    if (ending.IsDone()) {
        ending = Place({made.Name(), nullptr}, job.target, job.file.sTarget, job.replaced).ending;
    }
    if (!ending.IsDone()) {
        ending.sReason += made.Remove() ? "" : " An unfinished copy is left at the destination, hidden.";
        return ending;
    }
    made.Keep();
    return m_bMove ? RemoveSource(job, source.Get(), made.Get()) : tEnding();
}

/// Brings all that `hSource` is into the temporary file and that onto the disk.
tEnding FileTransfer::Fill(const tJob& job, int hSource, const Status& status, const TemporaryFile& made)
{
    // 1. What is in it.
    tEnding ending = FileCopier(hSource, made.Get(), status.st_size, job.goOn).Copy();
    if (!ending.IsDone()) {
        return ending;
    }
    // 2. What is known of it.
    int nError = KeepMetadata(hSource, made.Get(), status);
    // 3. On the disk, before it gets its name.
    if (nError == 0 && Retried([&] { return fsync(made.Get()); }) != 0) {
        nError = errno;
    }
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Write));
    }
    // 4. Whole, and of a file that nobody wrote to meanwhile.
    const tLook copy = LookAt(made.Get());
    if (copy.nError != 0 || copy.status.st_size != status.st_size) {
        return tEnding::NotDone("The copy did not come out whole.");
    }
    return IsStill(LookAt(hSource), job.file.identity);
}

/// The end of a move from one volume to another. `hSource` is the file that was copied, `hCopy` its copy.
tEnding FileTransfer::RemoveSource(const tJob& job, int hSource, int hCopy) const
{
    // 1. The new name is on the disk before the old one goes.
    int nError = m_folder.Sync(hCopy);
    if (nError != 0) {
        return tEnding::NotDone("It was copied but not removed. " + Reason(nError, Step::Write));
    }
    // 2. Still the file that was copied.
    tEnding ending = IsStill(LookAt(hSource), job.file.identity);
    if (ending.IsDone()) {
        ending = IsStill(job.source.Look(), job.file.identity);
    }
    if (!ending.IsDone()) {
        return tEnding::NotDone("It was copied but not removed. " + ending.sReason);
    }
    // 3. It goes.
    if (Retried([&] { return unlinkat(job.source.Folder(), job.source.Name().c_str(), 0); }) != 0) {
        nError = errno;
        return tEnding::NotDone("It was copied but not removed. " + Reason(nError, Step::Remove));
    }
    return {};
}

} // namespace desktop

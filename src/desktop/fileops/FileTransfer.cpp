// SPDX-License-Identifier: MIT
#include "FileTransfer.h"

#include "FileCopier.h"
#include "FileSystem.h"
#include "Metadata.h"
#include "Reasons.h"
#include "Retried.h"
#include "SourceRemoval.h"
#include "WriteLease.h"

#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr const char* kTargetMoved = "The destination folder is no longer where it was.";

/// True if a file or folder is locked against changes by more than its rights.
bool IsLocked(int hFolder, const char* pName, int nFlags)
{
    struct statx status = {};
    constexpr std::uint64_t nLocked = STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
    return statx(hFolder, pName, nFlags | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_BASIC_STATS,
                 &status) == 0 &&
           (status.stx_attributes & nLocked) != 0;
}

/// Why a file cannot be taken out of its folder, as far as that can be known beforehand: the system's error
/// number, or 0.
int WhyNotRemovable(const FolderEntry& file)
{
    const int hFolder = file.Folder().Get();
    if (faccessat(hFolder, ".", W_OK | X_OK, AT_EACCESS) != 0) {
        return errno;
    }
    // In a folder of all users, what is another's.
    const tLook& folder = file.Folder().Look();
    const tLook look = file.Look();
    const uid_t me = geteuid();
    if (me != 0 && (folder.status.st_mode & S_ISVTX) != 0 && folder.status.st_uid != me && look.nError == 0 &&
        look.status.st_uid != me) {
        return EPERM;
    }
    return IsLocked(hFolder, "", AT_EMPTY_PATH) || IsLocked(hFolder, file.Name().sName.c_str(), 0) ? EPERM
                                                                                                   : 0;
}

} // namespace

tTargetFolder& FileTransfer::Target(const tPlannedFile& file)
{
    return m_folders.Get(file.sTarget.substr(0, file.sTarget.size() - NameOf(file.sTarget).size()));
}

tEnding FileTransfer::Carry(const HeldFile& source, const tPlannedFile& file, const ProgressCall& goOn)
{
    tTargetFolder& target = Target(file);
    if (!target.sWhyNot.empty()) {
        return tEnding::NotDone(target.sWhyNot);
    }
    tJob job{source, file, goOn, FolderEntry(target.pFolder, NameOf(file.sTarget))};
    tEnding ending = Settle(job);
    if (!ending.IsDone()) {
        return ending;
    }
    bool bOtherVolume = !m_bMove;
    if (m_bMove) {
        const tNewPlace place{job.target, kTargetMoved, " It is at the destination.", Step::Write};
        tRelocation moved = Place(job, [&] { return Relocate(source, place); });
        bOtherVolume = moved.nError == EXDEV && moved.bBack;
        ending = std::move(moved.ending);
    }
    if (bOtherVolume) {
        ending = Copy(job);
    }
    if (ending.IsDone()) {
        target.done.push_back(file.sPath);
        ending.bReplaced = job.replaced.has_value();
    }
    return ending;
}

/// Settles whether the file is to go there at all: what stands there is itself, or no file, or is to stay.
tEnding FileTransfer::Settle(tJob& job)
{
    const FolderEntry& entry = job.source.Entry();
    const tLook source = entry.Look();
    tEnding ending = IsStill(source, job.source.Expected());
    if (!ending.IsDone()) {
        return ending;
    }
    const tLook target = job.target.Look();
    if (target.nError == ENOENT) {
        return {};
    }
    if (target.nError != 0) {
        return tEnding::NotDone(Reason(target.nError, Step::Write));
    }
    if (source.IsSameFileAs(target)) {
        const bool bSameEntry = entry.Name().sName == job.target.Name().sName &&
                                entry.Folder().Look().IsSameFileAs(job.target.Folder().Look());
        return tEnding::NotDone(bSameEntry ? "It is in that folder already."
                                           : "It is in that folder already, as one file with two names.");
    }
    if (!S_ISREG(target.status.st_mode)) {
        return tEnding::NotDone(S_ISDIR(target.status.st_mode)
                                    ? "There is a folder of its name at the destination."
                                    : "There is something of its name at the destination that is no file.");
    }
    const auto compares = [&] { return CompareWithTarget(job, target); };
    switch (m_questions.Ask(job.file.sPath, source, job.file.sTarget, target, compares)) {
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
    if (target.status.st_size != job.source.Expected().cySize) {
        return ContentComparison::Result::Different;
    }
    int nError = 0;
    const Descriptor from = job.source.Entry().Open(O_RDONLY | O_NONBLOCK, nError);
    const Descriptor to = job.target.Open(O_RDONLY | O_NONBLOCK, nError);
    const bool bStill = IsStill(LookAt(from.Get()), job.source.Expected()).IsDone() &&
                        IsStill(LookAt(to.Get()), target.Identity()).IsDone();
    return bStill ? m_comparison.Compare(from.Get(), to.Get(), job.goOn)
                  : ContentComparison::Result::Different;
}

/// Has a file given the target's name, the one that is to be replaced going to the trash.
tRelocation FileTransfer::Place(const tJob& job, const Names& names)
{
    // Without replacing: this also tells, before anything is touched, whether it can be done at all.
    tRelocation placed = names();
    if (placed.nError != EEXIST || !job.replaced) {
        return placed;
    }
    // The old file makes room.
    HeldFile old(job.target, *job.replaced);
    tTrashed trashed;
    tEnding ending = old.Hold();
    if (ending.IsDone()) {
        ending = m_trash.Put(old, trashed);
    }
    if (!ending.IsDone()) {
        return {
            tEnding::NotDone("The file that is there cannot be put into the trash first. " + ending.sReason)};
    }
    placed = names();
    // If that fails, the old file comes back.
    if (!placed.ending.IsDone() && !TrashCan::PutBack(trashed, job.target)) {
        placed.ending.sReason += " The file that was there is in the trash.";
        placed.bBack = false;
    }
    return placed;
}

tEnding FileTransfer::Copy(const tJob& job)
{
    // A move that could not be finished is not begun.
    int nError = m_bMove ? WhyNotRemovable(job.source.Entry()) : 0;
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Remove));
    }
    const Descriptor source = job.source.Entry().Open(O_RDONLY | O_NONBLOCK, nError);
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Read));
    }
    const tLook before = LookAt(source.Get());
    tEnding ending = IsStill(before, job.source.Expected());
    if (!ending.IsDone()) {
        return ending;
    }
    // From here until the source has gone: on some file systems what is written through a mapping, or within
    // one step of the clock, leaves no trace in the times.
    tOriginal original{source.Get(), before.status};
    if (m_bMove) {
        original.lease.emplace(source.Get());
    }
    if (original.IsOpenForWriting()) {
        return tEnding::NotDone(kOpenForWriting);
    }
    TemporaryFile made(job.target.Folder());
    if (made.Error() != 0) {
        return tEnding::NotDone(Reason(made.Error(), Step::Write));
    }
    tEnding filled = Fill(job, original, made);
    ending = filled;
    if (ending.IsDone()) {
        ending = Place(job, [&]() -> tRelocation {
                     const int nRefused = made.Name(job.target.Name());
                     return {nRefused == 0 ? tEnding() : tEnding::NotDone(Reason(nRefused, Step::Write)),
                             true, nRefused};
                 }).ending;
    }
    if (!ending.IsDone()) {
        ending.sReason += made.Remove() ? "" : " An unfinished copy is left at the destination, hidden.";
        return ending;
    }
    ending = Finish(job, original, made);
    if (ending.IsDone()) {
        ending.sReason = filled.sReason;
    }
    return ending;
}

/// Brings all that the original is into the temporary file and that onto the disk. Done may have a remark.
tEnding FileTransfer::Fill(const tJob& job, const tOriginal& original, const TemporaryFile& made)
{
    // Whoever opens it for writing meanwhile waits, and has it back at once.
    const ProgressCall goOn = [&](std::int64_t nDone) {
        return job.goOn(nDone) && !original.IsOpenForWriting();
    };
    tEnding ending = FileCopier(original.h, made.Get(), original.status.st_size, goOn).Copy();
    if (original.IsOpenForWriting()) {
        return tEnding::NotDone(kOpenForWriting);
    }
    if (!ending.IsDone()) {
        return ending;
    }
    tEnding kept = KeepMetadata(original.h, made.Get(), original.status);
    if (!kept.IsDone()) {
        return kept;
    }
    // On the disk, before it gets its name.
    const int nError = made.Finish();
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Write));
    }
    // Whole, and of a file that nobody wrote to meanwhile.
    const tLook copy = LookAt(made.Get());
    if (copy.nError != 0 || copy.status.st_size != original.status.st_size) {
        return tEnding::NotDone("The copy did not come out whole.");
    }
    ending = original.IsOpenForWriting() ? tEnding::NotDone(kOpenForWriting)
                                         : IsStill(LookAt(original.h), job.source.Expected());
    return ending.IsDone() ? kept : ending;
}

/// What is left to do once the copy has its name.
tEnding FileTransfer::Finish(const tJob& job, const tOriginal& original, const TemporaryFile& copy)
{
    // The new name is on the disk before the old one goes.
    const int nError = m_bMove ? SyncFolder(job.target.Folder(), copy.Get()) : 0;
    const std::string sWhyNot = nError != 0 ? Reason(nError, Step::Write) : WhyNotThere(job, copy);
    tEnding ending = sWhyNot.empty() ? tEnding() : tEnding::NotDone(sWhyNot);
    if (ending.IsDone() && m_bMove) {
        ending = RemoveSource(job.source, original.h, original.status, *original.lease, [&] {
            const std::string sUnlike = WhyUnlike(job, original, copy);
            return sUnlike.empty() ? WhyNotThere(job, copy) : sUnlike;
        });
    }
    if (!ending.IsDone()) {
        ending.sReason = (m_bMove ? "It was copied but not removed. " : "It was copied. ") + ending.sReason;
    }
    return ending;
}

/// Why the copy does not count; empty if it lies where it is to.
std::string FileTransfer::WhyNotThere(const tJob& job, const TemporaryFile& copy)
{
    return !job.target.Look().IsSameFileAs(LookAt(copy.Get()))
               ? "The copy has been taken away from the destination meanwhile."
           : !job.target.Folder().IsWhereItWas() ? kTargetMoved
                                                 : "";
}

/// Why the original must not go for this copy. Where nobody can write to it unnoticed they are known to be
/// alike; elsewhere the times, which may be coarse, are not enough to go by.
std::string FileTransfer::WhyUnlike(const tJob& job, const tOriginal& original, const TemporaryFile& copy)
{
    if (original.lease->IsHeld()) {
        return {};
    }
    // All of it has been copied, and that is what goes on showing.
    const ProgressCall goOn = [&](std::int64_t) { return job.goOn(original.status.st_size); };
    switch (m_comparison.Compare(original.h, copy.Get(), goOn)) {
    case ContentComparison::Result::Same:
        return {};
    case ContentComparison::Result::Different:
        return kChanged;
    case ContentComparison::Result::Cancelled:
        return "You cancelled before it had been compared with the copy.";
    default:
        return Reason(m_comparison.Error(), Step::Read);
    }
}

} // namespace desktop

// SPDX-License-Identifier: MIT
#include "FileTransfer.h"

#include "FileCopier.h"
#include "Metadata.h"
#include "Paths.h"
#include "Reasons.h"
#include "Retried.h"
#include "SourceRemoval.h"
#include "WriteLease.h"

#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr const char* kTargetMoved = "The destination folder is no longer where it was.";

/// True if a file or folder is protected against changes by an attribute, independently of its mode.
bool IsLocked(int hFolder, const char* pName, int nFlags)
{
    struct statx status = {};
    constexpr std::uint64_t nLocked = STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
    return statx(hFolder, pName, nFlags | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_BASIC_STATS,
                 &status) == 0 &&
           (status.stx_attributes & nLocked) != 0;
}

/// Why a file cannot be removed from its folder, as far as that can be known beforehand: the error number, or
/// 0.
int WhyNotRemovable(const FolderEntry& file)
{
    const int hFolder = file.Folder().Get();
    if (faccessat(hFolder, ".", W_OK | X_OK, AT_EACCESS) != 0) {
        return errno;
    }
    // A file of another user in a folder with the sticky bit.
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
    return m_folders.Get(platform::FolderPart(file.sTarget));
}

tEnding FileTransfer::Carry(const HeldFile& source, const tPlannedFile& file, const ProgressCall& goOn)
{
    tTargetFolder& target = Target(file);
    if (!target.sWhyNot.empty()) {
        return tEnding::NotDone(target.sWhyNot);
    }
    tJob job{source, file, goOn, FolderEntry(target.pFolder, platform::NameIn(file.sTarget))};
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

/// Decides whether the file is to be transferred at all: what exists at the target may be the file itself,
/// not a file, or a file that is to stay.
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

/// Compares the contents of the file and of the existing one, `target`.
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

/// Gives a file the target's name, and moves a file that is to be replaced to the trash.
tRelocation FileTransfer::Place(const tJob& job, const Names& names)
{
    // The first try does not replace anything, and also shows whether the rename is possible before anything
    // is touched.
    tRelocation placed = names();
    if (placed.nError != EEXIST || !job.replaced) {
        return placed;
    }
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
    if (!placed.ending.IsDone() && !TrashCan::PutBack(trashed, job.target)) {
        placed.ending.sReason += " The file that was there is in the trash.";
        placed.bBack = false;
    }
    return placed;
}

tEnding FileTransfer::Copy(const tJob& job)
{
    // A move that cannot be completed is not started.
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
    // From here until the source has been removed: on some file systems a write through a mapping, or within
    // the same clock tick, leaves no trace in the times.
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

/// Copies content and metadata of the original to the temporary file and syncs it. Done may have a remark.
tEnding FileTransfer::Fill(const tJob& job, const tOriginal& original, const TemporaryFile& made)
{
    // If another program opens the file for writing, the copy is abandoned so that it does not have to wait.
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
    // Synced before it gets its name.
    const int nError = made.Finish();
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, Step::Write));
    }
    // The copy must be complete, and the original must not have been written to meanwhile.
    const tLook copy = LookAt(made.Get());
    if (copy.nError != 0 || copy.status.st_size != original.status.st_size) {
        return tEnding::NotDone("The copy did not come out whole.");
    }
    ending = original.IsOpenForWriting() ? tEnding::NotDone(kOpenForWriting)
                                         : IsStill(LookAt(original.h), job.source.Expected());
    return ending.IsDone() ? kept : ending;
}

/// The final steps once the copy has its name.
tEnding FileTransfer::Finish(const tJob& job, const tOriginal& original, const TemporaryFile& copy)
{
    // The new name must be on disk before the old one is removed.
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

/// Why the copy is not valid; empty if it is where it should be.
std::string FileTransfer::WhyNotThere(const tJob& job, const TemporaryFile& copy)
{
    return !job.target.Look().IsSameFileAs(LookAt(copy.Get()))
               ? "The copy has been taken away from the destination meanwhile."
           : !job.target.Folder().IsWhereItWas() ? kTargetMoved
                                                 : "";
}

/// Why the original must not be removed in favour of this copy. If nobody can write to it unnoticed, both are
/// known to be identical; otherwise the times, which may be coarse, are not sufficient.
std::string FileTransfer::WhyUnlike(const tJob& job, const tOriginal& original, const TemporaryFile& copy)
{
    if (original.lease->IsHeld()) {
        return {};
    }
    // Everything has been copied, so the progress stays at the end during the comparison.
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

// SPDX-License-Identifier: MIT
#include "TrashCan.h"

#include "Renaming.h"
#include "TrashBatch.h"

#include <algorithm>
#include <fcntl.h>
#include <map>
#include <unistd.h>

namespace desktop {
namespace {

/// The result for a file without a trash, with the reason.
tEnding WithoutTrash(const HeldFile& file, std::string sReason)
{
    // Checks the folder first: no trash would help if the file must not be removed from it.
    const bool bMayGo = faccessat(file.Entry().Folder().Get(), ".", W_OK | X_OK, AT_EACCESS) == 0;
    return tEnding::NotDone(bMayGo ? std::move(sReason) : Reason(errno, Step::Trash));
}

constexpr int kMostTries = 100;

/// A file that is still to be moved.
struct tWaiting {
    std::size_t nFile = 0;
    bool bVolume = false; ///< the home trash could not be used
    int nTries = 0;       ///< number of names that were taken
};

/// True if the file is to be tried again after this result; `file` is updated accordingly.
bool IsToBeTried(tWaiting& file, const TrashBatch::tResult& result)
{
    using Next = TrashBatch::tResult::Next;
    switch (result.next) {
    case Next::Later:
        return true;
    case Next::OtherName:
        return ++file.nTries < kMostTries;
    case Next::OtherVolume:
        return !std::exchange(file.bVolume, true);
    case Next::Ended:
        break;
    }
    return false;
}

tEnding Ending(TrashBatch::tResult result)
{
    const bool bNamed = !result.ending.IsDone() || result.next == TrashBatch::tResult::Next::Ended;
    return bNamed ? std::move(result.ending) : tEnding::NotDone("The trash has no free name for it.");
}

/// Moves the files of a batch to the trash, except those that `begins` rejects or a cancel leaves; returns
/// those that are to be tried again.
std::vector<tWaiting> GoAll(TrashBatch& batch, std::vector<tWaiting>& files, LastLook* pLastLook,
                            const bool& bGoOn, const TrashCan::Begins& begins, const TrashCan::Ends& ends)
{
    std::vector<tWaiting> again;
    for (std::size_t n = 0; n < files.size(); ++n) {
        const std::size_t nFile = files[n].nFile;
        if (!bGoOn || !(batch.Result(n) || begins(nFile))) {
            batch.Drop(n);
            ends(nFile, {tEnding::Kind::Cancelled, {}});
            continue;
        }
        TrashBatch::tResult result = batch.Go(n, pLastLook);
        if (IsToBeTried(files[n], result)) {
            again.push_back(files[n]);
        } else {
            ends(nFile, Ending(std::move(result)));
        }
    }
    return again;
}

} // namespace

void TrashCan::Put(const std::vector<HeldFile>& files, const Begins& begins, const Ends& ends)
{
    std::vector<tWaiting> waiting(files.size());
    for (std::size_t n = 0; n < files.size(); ++n) {
        waiting[n].nFile = n;
    }
    bool bGoOn = true;
    while (!waiting.empty()) {
        std::map<TrashPtr, std::vector<tWaiting>> byTrash;
        for (const tWaiting& each : std::exchange(waiting, {})) {
            std::string sReason;
            const TrashPtr pTrash = m_folders.For(files[each.nFile].Entry().Folder(), each.bVolume, sReason);
            if (pTrash) {
                byTrash[pTrash].push_back(each);
            } else {
                ends(each.nFile, WithoutTrash(files[each.nFile], std::move(sReason)));
            }
        }
        const Begins goesOn = [&](std::size_t nFile) { return bGoOn = bGoOn && begins(nFile); };
        for (auto& [pTrash, ofTrash] : byTrash) {
            std::vector<const HeldFile*> held;
            held.reserve(ofTrash.size());
            for (const tWaiting& each : ofTrash) {
                held.push_back(&files[each.nFile]);
            }
            TrashBatch batch(*pTrash, std::move(held));
            if (bGoOn) {
                batch.MakeNotes();
            }
            const auto again = GoAll(batch, ofTrash, m_pLastLook, bGoOn, goesOn, ends);
            waiting.insert(waiting.end(), again.begin(), again.end());
        }
    }
}

tEnding TrashCan::Put(const HeldFile& file, tTrashed& trashed)
{
    tWaiting way;
    while (true) {
        std::string sReason;
        trashed.pTrash = m_folders.For(file.Entry().Folder(), way.bVolume, sReason);
        if (!trashed.pTrash) {
            return WithoutTrash(file, std::move(sReason));
        }
        TrashBatch batch(*trashed.pTrash, {&file});
        batch.MakeNotes();
        TrashBatch::tResult result = batch.Go(0, nullptr);
        trashed.sName = batch.NameOf(0);
        if (!IsToBeTried(way, result)) {
            tEnding ending = Ending(std::move(result));
            const int nError = ending.IsDone() ? batch.SyncFiles() : 0;
            return nError == 0
                       ? ending
                       : tEnding::NotDone(Reason(nError, Step::Trash) +
                                          (PutBack(trashed, file.Entry()) ? "" : " It is in the trash."));
        }
    }
}

bool TrashCan::PutBack(const tTrashed& trashed, const FolderEntry& to)
{
    if (RenameWithoutReplacing({trashed.pTrash->Files()->Get(), trashed.sName}, to.Name()) != 0) {
        return false;
    }
    // A note without its file is useless.
    trashed.pTrash->RemoveNote(trashed.sName);
    return true;
}

} // namespace desktop

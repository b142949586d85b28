#include "ShellFileOperations.h"

#include "FileTransfer.h"
#include "FreeRoom.h"
#include "LastLook.h"
#include "TrashCan.h"
#include "TrashConsent.h"

namespace desktop {
namespace {

constexpr int kInvalidRequest = 87; // what the shell returns for invalid parameters

/// Puts a file into the trash if one of `copies` stays; none: in any case.
tEnding TrashLookedAt(const tPlannedFile& file, const std::vector<tStayingCopy>& copies, LastLook& look,
                      const ProgressCall& goOn)
{
    tTrashed trashed;
    if (copies.empty()) {
        return TrashCan::Put(file.sPath, file.identity, trashed);
    }
    tEnding ending = look.Before(file.sPath, file.identity, copies, goOn);
    if (!ending.IsDone()) {
        return ending;
    }
    ending = TrashCan::Put(file.sPath, file.identity, trashed);
    if (!ending.IsDone()) {
        return ending;
    }
    ending = look.After();
    if (!ending.IsDone() && !TrashCan::PutBack(trashed)) {
        return tEnding::NotDone("It is in the trash. " + ending.sReason);
    }
    return ending;
}

} // namespace

int ShellFileOperations::SHFileOperationA(const platform::SHFILEOPSTRUCT& request)
{
    auto plan = Plan(request);
    if (!plan) {
        return kInvalidRequest;
    }
    if (plan->files.empty() && plan->notDone.empty()) {
        return 0;
    }
    if (plan->operation.operation == FileOperation::Trash) {
        Trash(request, *plan);
    } else if (const auto room = MissingRoom(*plan); !room || m_dialogs.AskRoom(plan->operation, *room)) {
        // Who chose a folder to move or copy to has confirmed by that.
        Transfer(*plan);
    }
    return 0;
}

void ShellFileOperations::Trash(const platform::SHFILEOPSTRUCT& request, tOperationPlan& plan)
{
    TrashConsent consent(plan);
    consent.Look(m_pGroups != nullptr ? m_pGroups->GroupsOf(Entries(request.pFrom)) : platform::tFileGroups(),
                 [] { return true; });
    const Consent answer = plan.files.empty() ? Consent::All : m_dialogs.Confirm(consent.Question());
    if (answer == Consent::Cancel) {
        return;
    }
    LastLook look;
    const Work trash = [&](const tPlannedFile& file, const ProgressCall& goOn) {
        const auto n = static_cast<std::size_t>(&file - plan.files.data());
        return TrashLookedAt(file, consent.ToCompare(n, answer), look, goOn);
    };
    Files files;
    for (const std::size_t n : consent.FilesFor(answer)) {
        files.push_back(&plan.files[n]);
    }
    const Files spared = CarryOut(plan.operation, files, std::move(plan.notDone), trash);
    if (!spared.empty()) {
        CarryOut({FileOperation::Trash, 0, 0, plan.operation.hwnd}, spared, {},
                 [](const tPlannedFile& file, const ProgressCall&) {
                     tTrashed trashed;
                     return TrashCan::Put(file.sPath, file.identity, trashed);
                 });
    }
}

void ShellFileOperations::Transfer(tOperationPlan& plan)
{
    FileTransfer transfer(plan.operation.operation, m_dialogs);
    Files files;
    for (const tPlannedFile& file : plan.files) {
        files.push_back(&file);
    }
    CarryOut(plan.operation, files, std::move(plan.notDone),
             [&](const tPlannedFile& file, const ProgressCall& goOn) { return transfer.Carry(file, goOn); });
}

/// Deals with `files`. Those that were spared, if the user wants them to go after all.
ShellFileOperations::Files ShellFileOperations::CarryOut(tOperation operation, const Files& files,
                                                         std::vector<tNotDone> notDone, const Work& work)
{
    operation.nFiles = files.size();
    operation.cyTotal = 0;
    for (const tPlannedFile* pFile : files) {
        operation.cyTotal += pFile->identity.cySize;
    }
    m_dialogs.Started(operation);
    tOperationProgress progress;
    tOperationOutcome outcome;
    outcome.notDone = std::move(notDone);
    Files spared;
    for (const tPlannedFile* pFile : files) {
        progress.sPath = pFile->sPath;
        const std::int64_t cyBefore = progress.cyDone;
        const ProgressCall goOn = [&](std::int64_t cyOfFile) {
            progress.cyDone = cyBefore + cyOfFile;
            return m_dialogs.Progress(progress);
        };
        tEnding ending{tEnding::Kind::Cancelled, {}};
        if (goOn(0)) {
            ending = work(*pFile, goOn);
        }
        if (ending.bSpared) {
            spared.push_back(pFile);
        }
        if (!ending.sReason.empty()) {
            outcome.notDone.push_back({pFile->sPath, std::move(ending.sReason), ending.bSpared});
        }
        if (ending.kind == tEnding::Kind::Cancelled) {
            outcome.bCancelled = true;
            break;
        }
        outcome.nFilesDone += ending.IsDone() ? 1U : 0U;
        outcome.nSkipped += ending.kind == tEnding::Kind::Skipped ? 1U : 0U;
        outcome.nReplaced += ending.IsDone() && ending.bReplaced ? 1U : 0U;
        ++progress.nFilesDone;
        progress.cyDone = cyBefore + pFile->identity.cySize;
    }
    return m_dialogs.Finished(operation, outcome) ? spared : Files();
}

long ShellFileOperations::SHGetFileInfoA(const std::string& sPath, unsigned /*dwFileAttributes*/,
                                         unsigned /*uFlags*/)
{
    return LookAt(sPath).nError == 0 ? 1 : 0;
}

} // namespace desktop

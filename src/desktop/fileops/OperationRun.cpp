// SPDX-License-Identifier: MIT
#include "OperationRun.h"

#include "Leftovers.h"

#include <chrono>
#include <utility>

namespace desktop {
namespace {

using Clock = std::chrono::steady_clock;

/// Files that go to the trash together: enough for one sync to cost each little, few enough to hold them all,
/// and on a slow disk those that can be looked at in this time.
constexpr std::size_t kBatch = 256;
constexpr std::chrono::milliseconds kGathering{200};

} // namespace

OperationRun::OperationRun(std::shared_ptr<OperationThread> pThread, tOperationPlan plan)
    : m_pThread(std::move(pThread)), m_plan(std::move(plan))
{
}

void OperationRun::LookAtFiles()
{
    const LooksOn looksOn = [this](const std::string& sPath, const tOperation& soFar) {
        m_progress.nFilesDone = soFar.nFiles;
        m_progress.cyDone = soFar.cyTotal;
        return GoOn(sPath);
    };
    m_bCancelled = !desktop::LookAtFiles(m_plan, m_folders, looksOn);
    m_progress = {};
}

void OperationRun::CarryOut()
{
    m_pThread->Record([this](tOperationOutcome& outcome) { outcome.notDone = std::move(m_plan.notDone); });
    if (m_plan.operation.operation == FileOperation::Trash) {
        TrashAll();
    } else {
        TransferAll();
    }
    m_pThread->Record([this](tOperationOutcome& outcome) { outcome.bCancelled = m_bCancelled; });
}

/// A step of the work on file `sPath`. False: the user has cancelled.
bool OperationRun::GoOn(const std::string& sPath, std::int64_t cyOfFile)
{
    tOperationProgress progress = m_progress;
    progress.sPath = sPath;
    progress.cyDone += cyOfFile;
    return m_pThread->Reached(progress);
}

/// Records how the work on a file ended.
void OperationRun::End(const tPlannedFile& file, tEnding ending)
{
    const bool bDone = ending.IsDone();
    const bool bCancelled = ending.kind == tEnding::Kind::Cancelled;
    m_pThread->Record([&](tOperationOutcome& outcome) {
        outcome.nFilesDone += bDone ? 1U : 0U;
        if (!ending.sReason.empty()) {
            (bDone ? outcome.remarks : outcome.notDone).push_back({file.sPath, std::move(ending.sReason)});
        }
    });
    m_bCancelled = m_bCancelled || bCancelled;
    m_progress.nFilesDone += bCancelled ? 0U : 1U;
    m_progress.cyDone += bCancelled ? 0 : file.identity.cySize;
}

/// Something is about to be done in a folder: what a dead run has left there is put in order first.
void OperationRun::Arrive(const FolderPtr& pFolder)
{
    if (pFolder && pFolder->Error() == 0 && m_cleared.insert(pFolder->Path()).second) {
        std::vector<tNotDone> left;
        ClearLeftovers(*pFolder, left);
        m_pThread->Record([&](tOperationOutcome& outcome) {
            outcome.remarks.insert(outcome.remarks.end(), left.begin(), left.end());
        });
    }
}

HeldFile OperationRun::Held(const tPlannedFile& file)
{
    const FolderPtr pFolder = m_folders.Of(file.sPath);
    Arrive(pFolder);
    return {FolderEntry(pFolder, NameOf(file.sPath)), file.identity};
}

void OperationRun::TrashAll()
{
    TrashCan trash;
    for (std::size_t n = 0; n < m_plan.files.size() && !m_bCancelled;) {
        n += TrashSome(trash, n);
    }
}

/// Puts some files from the `nFirst`th on into the trash; how many have been dealt with.
std::size_t OperationRun::TrashSome(TrashCan& trash, std::size_t nFirst)
{
    const auto start = Clock::now();
    std::vector<HeldFile> held;
    std::vector<const tPlannedFile*> files;
    std::size_t n = nFirst;
    while (n < m_plan.files.size() && held.size() < kBatch &&
           (n == nFirst || Clock::now() - start < kGathering)) {
        const tPlannedFile& file = m_plan.files[n++];
        if (!GoOn(file.sPath)) {
            m_bCancelled = true;
            return n - nFirst;
        }
        HeldFile each = Held(file);
        tEnding ending = each.Hold();
        if (ending.IsDone()) {
            held.push_back(std::move(each));
            files.push_back(&file);
        } else {
            End(file, std::move(ending));
        }
    }
    trash.Put(
        held, [&](std::size_t nFile) { return GoOn(files[nFile]->sPath); },
        [&](std::size_t nFile, tEnding ending) { End(*files[nFile], std::move(ending)); });
    return n - nFirst;
}

void OperationRun::TransferAll()
{
    FileTransfer transfer(
        m_plan.operation.operation,
        ReplaceQuestions([pThread = m_pThread](const tFileFacts& source, const tFileFacts& target) {
            return pThread->Ask(source, target);
        }));
    for (const tPlannedFile& file : m_plan.files) {
        const ProgressCall goOn = [&](std::int64_t cyOfFile) { return GoOn(file.sPath, cyOfFile); };
        if (!goOn(0)) {
            m_bCancelled = true;
            break;
        }
        HeldFile source = Held(file);
        Arrive(transfer.FolderOf(file));
        tEnding ending = source.Hold();
        End(file, ending.IsDone() ? transfer.Carry(source, file, goOn) : ending);
        if (m_bCancelled) {
            break;
        }
    }
    NameAstray(transfer);
}

/// What was brought to a folder that has been moved since is not where the user wanted it.
void OperationRun::NameAstray(const FileTransfer& transfer)
{
    const bool bMove = m_plan.operation.operation == FileOperation::Move;
    const std::vector<std::string> astray = transfer.Astray();
    m_pThread->Record([&](tOperationOutcome& outcome) {
        for (const std::string& sPath : astray) {
            --outcome.nFilesDone;
            outcome.notDone.push_back({sPath, std::string(bMove ? "It was moved" : "It was copied") +
                                                  ", but the destination folder is no longer where it was."});
        }
    });
}

} // namespace desktop

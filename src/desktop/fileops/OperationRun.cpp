// SPDX-License-Identifier: MIT
#include "OperationRun.h"

#include "FreeRoom.h"
#include "Leftovers.h"
#include "Paths.h"

#include <chrono>
#include <utility>

namespace desktop {
namespace {

using Clock = std::chrono::steady_clock;

/// The size of a batch for the trash: enough files for a sync to cost little per file, few enough to hold all
/// of them open, and on a slow disk as many as can be looked at in this time.
constexpr std::size_t kBatch = 256;
constexpr std::chrono::milliseconds kGathering{200};

} // namespace

OperationRun::OperationRun(std::shared_ptr<OperationThread> pThread, tOperationPlan plan,
                           platform::tFileGroups groups)
    : m_pThread(std::move(pThread)), m_plan(std::move(plan)), m_groups(std::move(groups))
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
    if (m_plan.operation.operation != FileOperation::Trash) {
        m_room = m_bCancelled ? std::nullopt : MissingRoom(m_plan, m_folders);
    } else if (!m_bCancelled) {
        m_progress.nFilesDone = m_plan.operation.nFiles;
        m_progress.cyDone = m_plan.operation.cyTotal;
        m_bCancelled = !m_consent.Look(m_plan, std::move(m_groups), m_folders,
                                       [this](const std::string& sPath) { return GoOn(sPath); });
        m_toTrash = m_consent.FilesFor(m_answer);
    }
    m_progress = {};
}

tOperation OperationRun::Answered(Consent consent)
{
    m_answer = consent;
    m_toTrash = m_consent.FilesFor(consent);
    tOperation operation = m_plan.operation;
    operation.nFiles = m_toTrash.size();
    operation.cyTotal = 0;
    for (const std::size_t n : m_toTrash) {
        operation.cyTotal += m_plan.files[n].identity.cySize;
    }
    return operation;
}

tOperationPlan OperationRun::Spared() const
{
    tOperationPlan plan;
    plan.operation.operation = FileOperation::Trash;
    plan.operation.hwnd = m_plan.operation.hwnd;
    for (const std::string& sPath : m_spared) {
        plan.files.push_back({sPath, {}, {}});
    }
    return plan;
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

/// A step of the work on file `sPath`. False if the user has cancelled.
bool OperationRun::GoOn(const std::string& sPath, std::int64_t cyOfFile)
{
    tOperationProgress progress = m_progress;
    progress.sPath = sPath;
    progress.cyDone += cyOfFile;
    return m_pThread->Reached(progress);
}

/// Records the result for a file.
void OperationRun::End(const tPlannedFile& file, tEnding ending)
{
    const bool bDone = ending.IsDone();
    const bool bCancelled = ending.kind == tEnding::Kind::Cancelled;
    if (ending.bSpared) {
        m_spared.push_back(file.sPath);
    }
    m_pThread->Record([&](tOperationOutcome& outcome) {
        outcome.nFilesDone += bDone ? 1U : 0U;
        outcome.nSkipped += ending.kind == tEnding::Kind::Skipped ? 1U : 0U;
        outcome.nReplaced += bDone && ending.bReplaced ? 1U : 0U;
        if (!ending.sReason.empty()) {
            (bDone ? outcome.remarks : outcome.notDone)
                .push_back({file.sPath, std::move(ending.sReason), ending.bSpared});
        }
    });
    m_bCancelled = m_bCancelled || bCancelled;
    m_progress.nFilesDone += bCancelled ? 0U : 1U;
    m_progress.cyDone += bCancelled ? 0 : file.identity.cySize;
}

/// Called before the first change in a folder: cleans up what a terminated run has left there.
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
    return {FolderEntry(pFolder, platform::NameIn(file.sPath)), file.identity};
}

void OperationRun::TrashAll()
{
    CopyLook look(m_folders);
    TrashCan trash(&look);
    for (std::size_t n = 0; n < m_toTrash.size() && !m_bCancelled;) {
        n += TrashSome(trash, look, n);
    }
}

/// Moves some files, starting with number `nFirst`, to the trash; returns how many have been processed.
std::size_t OperationRun::TrashSome(TrashCan& trash, CopyLook& look, std::size_t nFirst)
{
    const auto start = Clock::now();
    std::vector<HeldFile> held;
    std::vector<std::size_t> places;
    std::size_t n = nFirst;
    while (n < m_toTrash.size() && held.size() < kBatch &&
           (n == nFirst || Clock::now() - start < kGathering)) {
        const tPlannedFile& file = m_plan.files[m_toTrash[n]];
        if (!GoOn(file.sPath)) {
            m_bCancelled = true;
            return n - nFirst;
        }
        HeldFile each = Held(file);
        tEnding ending = each.Hold();
        if (ending.IsDone()) {
            held.push_back(std::move(each));
            places.push_back(m_toTrash[n]);
        } else {
            End(file, std::move(ending));
        }
        ++n;
    }
    const auto fileOf = [&](std::size_t nHeld) -> const tPlannedFile& { return m_plan.files[places[nHeld]]; };
    trash.Put(
        held,
        [&](std::size_t nHeld) {
            look.Begin(held[nHeld], m_consent.ToCompare(places[nHeld], m_answer),
                       [&, nHeld](std::int64_t) { return GoOn(fileOf(nHeld).sPath); });
            return GoOn(fileOf(nHeld).sPath);
        },
        [&](std::size_t nHeld, tEnding ending) { End(fileOf(nHeld), std::move(ending)); });
    return n - nFirst;
}

void OperationRun::TransferAll()
{
    FileTransfer transfer(m_plan.operation.operation,
                          ReplaceQuestions([pThread = m_pThread](const tFileFacts& source,
                                                                 const tFileFacts& target, bool bIdentical) {
                              return pThread->Ask(source, target, bIdentical);
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

/// Files that were put into a folder which has been moved since are not where the user wanted them.
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

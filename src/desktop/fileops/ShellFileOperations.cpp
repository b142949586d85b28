#include "ShellFileOperations.h"

#include "FileTransfer.h"
#include "TrashCan.h"

namespace desktop {
namespace {

constexpr int kInvalidRequest = 87; // what the shell returns for invalid parameters

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
    // Who chose a folder to move or copy to has confirmed by that.
    const bool bConfirm = plan->operation.operation == FileOperation::Trash && !plan->files.empty();
    if (!bConfirm || m_dialogs.Confirm(plan->operation)) {
        CarryOut(*plan);
    }
    return 0;
}

void ShellFileOperations::CarryOut(tOperationPlan& plan)
{
    const tOperation& operation = plan.operation;
    m_dialogs.Started(operation);
    FileTransfer transfer(operation.operation, m_dialogs);
    tOperationProgress progress;
    tOperationOutcome outcome;
    outcome.notDone = std::move(plan.notDone);
    for (const tPlannedFile& file : plan.files) {
        progress.sPath = file.sPath;
        const std::int64_t cyBefore = progress.cyDone;
        const ProgressCall goOn = [&](std::int64_t cyOfFile) {
            progress.cyDone = cyBefore + cyOfFile;
            return m_dialogs.Progress(progress);
        };
        tEnding ending{tEnding::Kind::Cancelled, {}};
        if (goOn(0)) {
            tTrashed trashed;
            ending = operation.operation == FileOperation::Trash
                         ? TrashCan::Put(file.sPath, file.identity, trashed)
                         : transfer.Carry(file, goOn);
        }
        if (!ending.sReason.empty()) {
            outcome.notDone.push_back({file.sPath, std::move(ending.sReason)});
        }
        if (ending.kind == tEnding::Kind::Cancelled) {
            outcome.bCancelled = true;
            break;
        }
        if (ending.IsDone()) {
            ++outcome.nFilesDone;
        }
        ++progress.nFilesDone;
        progress.cyDone = cyBefore + file.identity.cySize;
    }
    m_dialogs.Finished(operation, outcome);
}

long ShellFileOperations::SHGetFileInfoA(const std::string& sPath, unsigned /*dwFileAttributes*/,
                                         unsigned /*uFlags*/)
{
    return LookAt(sPath).nError == 0 ? 1 : 0;
}

} // namespace desktop

#include "ShellFileOperations.h"

#include "EndSignals.h"
#include "FileIdentity.h"
#include "OperationRun.h"

#include <system_error>
#include <utility>

namespace desktop {
namespace {

// What the shell returns, by the system error codes of its world.
constexpr int kNoMemory = 8;
constexpr int kInvalidRequest = 87;
constexpr int kTimeout = 1460;

} // namespace

int ShellFileOperations::SHFileOperationA(const platform::SHFILEOPSTRUCT& request)
{
    tOperationPlan wanted;
    if (!ReadRequest(request, wanted)) {
        return kInvalidRequest;
    }
    if (wanted.files.empty()) {
        return 0;
    }
    const auto pThread = std::make_shared<OperationThread>(m_bEachStep);
    const auto pRun = std::make_shared<OperationRun>(pThread, std::move(wanted));
    tOperation soFar = pRun->Plan().operation;
    try {
        bool bCancelled = false;
        const auto looking = [&](const tOperationProgress& progress) {
            soFar.nFiles = progress.nFilesDone;
            soFar.cyTotal = progress.cyDone;
            bCancelled = bCancelled || !m_dialogs.Looking(soFar);
            return !bCancelled;
        };
        if (!OperationThread::Run(pThread, [pRun] { pRun->LookAtFiles(); }, looking, m_dialogs)) {
            return NoAnswer(soFar, *pThread);
        }
        // Who chose a folder to move or copy to has confirmed by that.
        const tOperation operation = pRun->Plan().operation;
        const bool bConfirm = operation.operation == FileOperation::Trash && operation.nFiles > 0;
        if (bCancelled || (bConfirm && !m_dialogs.Confirm(operation))) {
            return 0;
        }
        m_dialogs.Started(operation);
        const auto working = [&](const tOperationProgress& progress) { return m_dialogs.Progress(progress); };
        bool bEnded = false;
        {
            const EndSignals signals;
            bEnded = OperationThread::Run(pThread, [pRun] { pRun->CarryOut(); }, working, m_dialogs);
        }
        if (!bEnded) {
            return NoAnswer(operation, *pThread);
        }
        m_dialogs.Finished(operation, pThread->Outcome());
        return 0;
    } catch (const std::system_error&) {
        return kNoMemory; // there is no thread to be had
    }
}

/// The work has been left behind: names the file that it hangs at.
int ShellFileOperations::NoAnswer(const tOperation& operation, const OperationThread& thread)
{
    tOperationOutcome outcome = thread.Outcome();
    outcome.bCancelled = true;
    outcome.notDone.push_back(
        {thread.Progress().sPath,
         "It was in hand when you cancelled, and the file system has not answered yet."});
    m_dialogs.Finished(operation, outcome);
    return kTimeout;
}

long ShellFileOperations::SHGetFileInfoA(const std::string& sPath, unsigned /*dwFileAttributes*/,
                                         unsigned /*uFlags*/)
{
    return LookAt(sPath).nError == 0 ? 1 : 0;
}

} // namespace desktop

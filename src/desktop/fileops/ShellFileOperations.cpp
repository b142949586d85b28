// SPDX-License-Identifier: MIT
#include "ShellFileOperations.h"

#include "EndSignals.h"
#include "FileIdentity.h"
#include "Reasons.h"

#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

namespace desktop {
namespace {

// Results of the shell, as error codes of its API.
constexpr int kNoMemory = 8;
constexpr int kInvalidRequest = 87;
constexpr int kCancelled = 1223;
constexpr int kTimeout = 1460;

constexpr const char* kNoAnswer =
    "It was in hand when you cancelled, and the file system has not answered yet.";

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
    platform::tFileGroups groups;
    if (m_pGroups != nullptr && wanted.operation.operation == FileOperation::Trash) {
        std::vector<std::string> paths;
        paths.reserve(wanted.files.size());
        for (const tPlannedFile& file : wanted.files) {
            paths.push_back(file.sPath);
        }
        groups = m_pGroups->GroupsOf(paths);
    }
    try {
        Result result = CarryOut(wanted, std::move(groups), true);
        while (result == Result::SparedToo) {
            result = CarryOut(wanted, {}, false);
        }
        return result == Result::NotLooked ? kCancelled : result == Result::NoAnswer ? kTimeout : 0;
    } catch (const std::system_error&) {
        return kNoMemory; // no thread could be created
    } catch (const std::bad_alloc&) {
        return kNoMemory; // not even for looking at the files
    }
}

/// Carries out a plan whose files have not been looked at. SparedToo: the user wants the spared files to be
/// deleted after all, and `wanted` is the plan for them.
ShellFileOperations::Result ShellFileOperations::CarryOut(tOperationPlan& wanted,
                                                          platform::tFileGroups groups, bool bAsk)
{
    const auto pThread = std::make_shared<OperationThread>(m_bEachStep);
    const auto pRun = std::make_shared<OperationRun>(pThread, std::move(wanted), std::move(groups));
    tOperation soFar = pRun->Plan().operation;
    const Looked looked = Look(pThread, soFar, [pRun] { pRun->LookAtFiles(); });
    if (looked == Looked::NoAnswer) {
        BrokenOff(soFar, *pThread, true, kNoAnswer);
        return Result::NoAnswer;
    }
    if (looked == Looked::Cancelled) {
        return Result::NotLooked;
    }
    const auto agreed = bAsk ? Agreed(*pRun) : pRun->Plan().operation;
    if (!agreed) {
        return Result::Ended;
    }
    m_dialogs.Started(*agreed);
    const auto working = [&](const tOperationProgress& progress) { return m_dialogs.Progress(progress); };
    bool bEnded = false;
    try {
        const EndSignals signals;
        bEnded = OperationThread::Run(pThread, [pRun] { pRun->CarryOut(); }, working, m_dialogs);
    } catch (const std::bad_alloc&) {
        BrokenOff(*agreed, *pThread, false, Reason(ENOMEM, Step::Read));
        return Result::Ended;
    }
    if (!bEnded) {
        BrokenOff(*agreed, *pThread, true, kNoAnswer);
        return Result::NoAnswer;
    }
    const bool bSparedToo = m_dialogs.Finished(*agreed, pThread->Outcome());
    wanted = pRun->Spared();
    return bSparedToo && !wanted.files.empty() ? Result::SparedToo : Result::Ended;
}

/// Runs `look` in the thread, counts in `soFar` what it has looked at, and lets the user cancel.
ShellFileOperations::Looked ShellFileOperations::Look(const std::shared_ptr<OperationThread>& pThread,
                                                      tOperation& soFar, std::function<void()> look)
{
    const std::unique_ptr<OperationDialogs, void (*)(OperationDialogs*)> window(
        &m_dialogs, [](OperationDialogs* pDialogs) { pDialogs->LookingEnded(); });
    bool bCancelled = false;
    const auto looking = [&](const tOperationProgress& progress) {
        soFar.nFiles = progress.nFilesDone;
        soFar.cyTotal = progress.cyDone;
        bCancelled = bCancelled || !m_dialogs.Looking(soFar);
        return !bCancelled;
    };
    if (!OperationThread::Run(pThread, std::move(look), looking, m_dialogs)) {
        return Looked::NoAnswer;
    }
    return bCancelled ? Looked::Cancelled : Looked::All;
}

/// Asks the user. Returns what the user has agreed to; empty if the user has declined.
std::optional<tOperation> ShellFileOperations::Agreed(OperationRun& run)
{
    const tOperation& operation = run.Plan().operation;
    if (operation.operation != FileOperation::Trash) {
        // Choosing the destination folder of a move or copy is the confirmation.
        return !run.Room() || m_dialogs.AskRoom(operation, *run.Room()) ? std::optional(operation)
                                                                        : std::nullopt;
    }
    const Consent consent = operation.nFiles > 0 ? m_dialogs.Confirm(run.Question()) : Consent::All;
    return consent != Consent::Cancel ? std::optional(run.Answered(consent)) : std::nullopt;
}

/// Reports work that did not reach its end, for the file that it stopped at.
void ShellFileOperations::BrokenOff(const tOperation& operation, const OperationThread& thread,
                                    bool bCancelled, const std::string& sReason)
{
    tOperationOutcome outcome = thread.Outcome();
    outcome.bCancelled = bCancelled;
    outcome.notDone.push_back({thread.Progress().sPath, sReason});
    m_dialogs.Finished(operation, outcome);
}

bool ShellFileOperations::LookAtEach(platform::WindowHandle hwnd, std::size_t nCount,
                                     std::function<void(std::size_t)> look)
{
    try {
        const auto pThread = std::make_shared<OperationThread>(false);
        tOperation soFar;
        soFar.hwnd = hwnd;
        const auto lookAtAll = [pThread, nCount, look = std::move(look)] {
            tOperationProgress progress;
            while (progress.nFilesDone < nCount && pThread->Reached(progress)) {
                look(progress.nFilesDone++);
            }
        };
        return Look(pThread, soFar, lookAtAll) == Looked::All;
    } catch (const std::system_error&) {
        return false; // no thread could be created
    } catch (const std::bad_alloc&) {
        return false;
    }
}

long ShellFileOperations::SHGetFileInfoA(const std::string& sPath, unsigned /*dwFileAttributes*/,
                                         unsigned /*uFlags*/)
{
    return LookAt(sPath).nError == 0 ? 1 : 0;
}

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace desktop {

/// Runs file operations in a thread of their own, while the main thread keeps the windows responsive: a disk
/// or network that hangs blocks only the work. All communication between the two threads goes through this
/// class.
class OperationThread
{
public:
    /// Shows the progress. Returns false if the user has cancelled.
    using Shows = std::function<bool(const tOperationProgress&)>;

    /// With `bEachStep` the work stops at each step until it has been shown, and can be cancelled there;
    /// otherwise progress is shown every few milliseconds.
    explicit OperationThread(bool bEachStep) : m_bEachStep(bEachStep) {}

    /// Called by the main thread: runs `work`, which must own everything it uses, and shows its questions to
    /// the user. Returns false if the user has cancelled and the work does not respond: it is then left
    /// behind, and nothing it still does is recorded. Throws std::system_error if no thread can be created,
    /// and std::bad_alloc if the work has run out of memory and ended there.
    static bool Run(const std::shared_ptr<OperationThread>& pThread, std::function<void()> work,
                    const Shows& shows, OperationDialogs& dialogs);

    /// Called by the work at the start of a step. Returns false if the user has cancelled.
    bool Reached(const tOperationProgress& progress);

    /// Called by the work to ask the user.
    tReplaceAnswer Ask(const tFileFacts& source, const tFileFacts& target, bool bIdentical);

    /// Called by the work to record results; ignored once it has been left behind.
    void Record(const std::function<void(tOperationOutcome&)>& record);

    /// The recorded results, and the last step.
    tOperationOutcome Outcome() const;
    tOperationProgress Progress() const;

private:
    struct tQuestion {
        const tFileFacts& source;
        const tFileFacts& target;
        bool bIdentical;
        tReplaceAnswer answer{};
    };

    bool Serve(const Shows& shows, OperationDialogs& dialogs);
    void End(bool bMemory);

    const bool m_bEachStep;
    mutable std::mutex m_mutex; ///< guards all following members
    std::condition_variable m_toWindow;
    std::condition_variable m_toWork;
    tOperationProgress m_progress;
    tOperationOutcome m_outcome;
    tQuestion* m_pQuestion = nullptr; ///< until it is answered
    bool m_bStep = false;             ///< a step is waiting to be shown
    bool m_bCancelled = false;
    bool m_bHeard = false; ///< the work has noticed the cancel
    bool m_bEnded = false;
    bool m_bLeft = false;
    bool m_bMemory = true; ///< false: the work ran out of memory
};

/// The number of abandoned threads that are still running. While it is not 0 the program must end by _exit,
/// since what they use must not be destroyed.
int ThreadsLeftBehind();

} // namespace desktop

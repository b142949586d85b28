// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace desktop {

/// Work on files on a thread of its own, beside the window's, which keeps the windows alive meanwhile: a disk
/// or a network that hangs holds only the work. What the two tell each other passes through here.
class OperationThread
{
public:
    /// Shows how far the work has come. False: the user has cancelled.
    using Shows = std::function<bool(const tOperationProgress&)>;

    /// With `bEachStep` the work waits at each step until it has been shown and can be cancelled right there;
    /// otherwise steps are shown every few milliseconds.
    explicit OperationThread(bool bEachStep) : m_bEachStep(bEachStep) {}

    /// For the window's thread: runs `work`, which must own all that it uses, and asks the user for it. False
    /// if the user has cancelled and the work does not answer: then it is left behind, and nothing that it
    /// still does is recorded. The system may also have no thread for it: std::system_error; or no memory
    /// while it works: std::bad_alloc, the work having ended where it was.
    static bool Run(const std::shared_ptr<OperationThread>& pThread, std::function<void()> work,
                    const Shows& shows, OperationDialogs& dialogs);

    /// For the work: a step begins. False: the user has cancelled.
    bool Reached(const tOperationProgress& progress);

    /// For the work: asks the user.
    tReplaceAnswer Ask(const tFileFacts& source, const tFileFacts& target, bool bIdentical);

    /// For the work: what has come of it, as long as it has not been left behind.
    void Record(const std::function<void(tOperationOutcome&)>& record);

    /// What has been recorded, and the last step.
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
    mutable std::mutex m_mutex; ///< of all that follows
    std::condition_variable m_toWindow;
    std::condition_variable m_toWork;
    tOperationProgress m_progress;
    tOperationOutcome m_outcome;
    tQuestion* m_pQuestion = nullptr; ///< until it is answered
    bool m_bStep = false;             ///< a step waits to be shown
    bool m_bCancelled = false;
    bool m_bHeard = false; ///< the work knows of the cancel
    bool m_bEnded = false;
    bool m_bLeft = false;
    bool m_bMemory = true; ///< false: there was none to be had
};

/// How many threads that were left behind still run. While there are, the program can only end at once: what
/// they use must not be taken down.
int ThreadsLeftBehind();

} // namespace desktop

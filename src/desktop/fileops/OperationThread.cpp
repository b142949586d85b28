// SPDX-License-Identifier: MIT
#include "OperationThread.h"

#include "EndSignals.h"

#include <atomic>
#include <chrono>
#include <new>
#include <thread>
#include <utility>

namespace desktop {
namespace {

using Clock = std::chrono::steady_clock;

/// The interval at which events are processed.
constexpr std::chrono::milliseconds kPace{10};

/// How long the work may take to notice a cancel, so that the user has the window back within a tenth of a
/// second; and how long it may take to clean up after that.
constexpr std::chrono::milliseconds kToHear{60};
constexpr std::chrono::milliseconds kToTidyUp{1000};

/// Factor for both times if the work stops at each step until it has been shown.
constexpr int kPatience = 20;

std::atomic<int> g_nLeftBehind{0};

} // namespace

bool OperationThread::Run(const std::shared_ptr<OperationThread>& pThread, std::function<void()> work,
                          const Shows& shows, OperationDialogs& dialogs)
{
    pThread->m_bEnded = false;
    std::thread thread([pThread, work = std::move(work)]() mutable {
        bool bMemory = true;
        try {
            work();
        } catch (const std::bad_alloc&) {
            bMemory = false;
        }
        work = nullptr; // destroying what it owns may have to wait for a file system
        pThread->End(bMemory);
    });
    const bool bEnded = pThread->Serve(shows, dialogs);
    if (bEnded) {
        thread.join();
        if (!pThread->m_bMemory) {
            throw std::bad_alloc();
        }
    } else {
        thread.detach();
    }
    return bEnded;
}

bool OperationThread::Serve(const Shows& shows, OperationDialogs& dialogs)
{
    const int nPatience = m_bEachStep ? kPatience : 1;
    std::unique_lock lock(m_mutex);
    Clock::time_point cancelled;
    while (true) {
        m_toWindow.wait_for(lock, kPace, [this] { return m_bEnded || m_bStep || m_pQuestion != nullptr; });
        if (m_bEnded) {
            return true;
        }
        if (m_pQuestion != nullptr) {
            lock.unlock();
            EndSignals::Wait(false);
            m_pQuestion->answer =
                dialogs.AskReplace(m_pQuestion->source, m_pQuestion->target, m_pQuestion->bIdentical);
            EndSignals::Wait(true);
            lock.lock();
            m_pQuestion = nullptr;
            m_toWork.notify_one();
            continue;
        }
        const tOperationProgress progress = m_progress;
        lock.unlock();
        const bool bGoOn = shows(progress) && !EndSignals::Arrived();
        lock.lock();
        if (!bGoOn && !std::exchange(m_bCancelled, true)) {
            cancelled = Clock::now();
        }
        m_bHeard = m_bHeard || (m_bCancelled && m_bStep);
        m_bStep = false;
        m_toWork.notify_one();
        if (m_bCancelled && !m_bEnded &&
            Clock::now() - cancelled > nPatience * (m_bHeard ? kToTidyUp : kToHear)) {
            m_bLeft = true;
            ++g_nLeftBehind;
            return false;
        }
    }
}

void OperationThread::End(bool bMemory)
{
    const std::lock_guard lock(m_mutex);
    m_bEnded = true;
    m_bMemory = bMemory;
    g_nLeftBehind -= m_bLeft ? 1 : 0;
    m_toWindow.notify_one();
}

bool OperationThread::Reached(const tOperationProgress& progress)
{
    std::unique_lock lock(m_mutex);
    m_progress = progress;
    if (m_bEachStep && !m_bCancelled) {
        m_bStep = true;
        m_toWindow.notify_one();
        m_toWork.wait(lock, [this] { return !m_bStep; });
    }
    m_bHeard = m_bCancelled;
    return !m_bCancelled;
}

tReplaceAnswer OperationThread::Ask(const tFileFacts& source, const tFileFacts& target, bool bIdentical)
{
    tQuestion question{source, target, bIdentical};
    std::unique_lock lock(m_mutex);
    if (m_bCancelled) {
        return {tReplaceAnswer::Choice::Cancel, true};
    }
    m_pQuestion = &question;
    m_toWindow.notify_one();
    m_toWork.wait(lock, [this] { return m_pQuestion == nullptr; });
    return question.answer;
}

void OperationThread::Record(const std::function<void(tOperationOutcome&)>& record)
{
    const std::lock_guard lock(m_mutex);
    if (!m_bLeft) {
        record(m_outcome);
    }
}

tOperationOutcome OperationThread::Outcome() const
{
    const std::lock_guard lock(m_mutex);
    return m_outcome;
}

tOperationProgress OperationThread::Progress() const
{
    const std::lock_guard lock(m_mutex);
    return m_progress;
}

int ThreadsLeftBehind()
{
    return g_nLeftBehind;
}

} // namespace desktop

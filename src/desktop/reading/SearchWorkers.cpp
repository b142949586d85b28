// SPDX-License-Identifier: MIT
#include "SearchWorkers.h"

#include "ReadingTasks.h"

#include <atomic>
#include <csignal>
#include <linux/close_range.h>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

std::atomic<std::size_t> g_nAlive = 0;

/// Blocks signals in threads started during its lifetime, so that the main thread gets them.
class SignalsHeld
{
public:
    SignalsHeld()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t m_before{};
};

void RunWorker(const std::shared_ptr<ReadingTasks>& tasks)
{
    // A separate descriptor table, without the program's descriptors, avoids the locks of a shared one and
    // does not keep files open that the program closes. If the call fails, the shared one is used.
#ifndef __SANITIZE_THREAD__ // It assumes one table and reports the same number in two as a race.
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_UNSHARE);
#endif
    // Gives the window priority if there are more threads than processors.
    constexpr int kNiceness = 5;
    setpriority(PRIO_PROCESS, 0, kNiceness);
    tasks->Work();
}

ReadingTasks::Start StartWorker(const std::weak_ptr<ReadingTasks>& tasks)
{
    const SignalsHeld held;
    ++g_nAlive;
    try {
        std::thread([tasks = tasks.lock()]() mutable {
            RunWorker(tasks);
            tasks.reset();
            --g_nAlive;
        }).detach();
        return ReadingTasks::Start::Done;
    } catch (const std::system_error&) {
        return --g_nAlive > 0 ? ReadingTasks::Start::Later : ReadingTasks::Start::Never;
    }
}

} // namespace

SearchWorkers::SearchWorkers(const platform::tSearchedFolders& searched, std::size_t nWorkers)
{
    // A weak reference, filled in once the object exists.
    const auto self = std::make_shared<std::weak_ptr<ReadingTasks>>();
    m_tasks = std::make_shared<ReadingTasks>(searched, nWorkers > 0 ? nWorkers : UsableProcessors(),
                                             [self] { return StartWorker(*self); });
    *self = m_tasks;
    m_tasks->AddWorkers();
}

SearchWorkers::~SearchWorkers()
{
    m_tasks->End();
}

platform::Answer SearchWorkers::ListFolder(const std::string& sPath, platform::FolderListing& listing)
{
    return m_tasks->ListFolder(sPath, listing);
}

void SearchWorkers::ReadFiles(platform::tFilesToRead files)
{
    m_tasks->ReadFiles(std::move(files));
}

platform::Answer SearchWorkers::AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum)
{
    return m_tasks->AskFor(nInHand, n, nSum);
}

void SearchWorkers::ReadFirst(std::vector<std::uint32_t> entries)
{
    m_tasks->ReadFirst(std::move(entries));
}

std::size_t SearchWorkers::Alive()
{
    return g_nAlive;
}

} // namespace desktop

// SPDX-License-Identifier: MIT
#include "ReadingTasks.h"

#include "MountTable.h"

#include <new>
#include <utility>

namespace desktop {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using platform::Answer;

/// How long the search waits before it checks its events and whether to go on.
constexpr auto kWait = 3ms;

/// How long the search may stay with one entry before the files needed for it are read first.
constexpr auto kPatience = 150ms;

/// How long workers get at the end to finish their current work.
constexpr auto kFarewell = 20ms;

} // namespace

ReadingTasks::ReadingTasks(const platform::tSearchedFolders& searched, std::size_t nWorkers,
                           std::function<Start()> startWorker)
    : m_bIdentities(MountTable().AnyMountedTwice()), m_folders(searched), m_count(nWorkers),
      m_nWorth(nWorkers), m_startWorker(std::move(startWorker))
{
}

Answer ReadingTasks::ListFolder(const std::string& sPath, platform::FolderListing& listing)
{
    Lock lock(m_mutex);
    auto* pFolder = &m_folders.Asked(sPath);
    if (!pFolder->bListed) {
        m_bWaitsForFolder = true;
        Wait(lock);
        m_bWaitsForFolder = false;
    }
    if (!pFolder->bListed) {
        return Answer::NotYet;
    }
    const bool bOpened = pFolder->bOpened;
    listing = m_folders.Drop();
    if (m_folders.MayTake()) {
        m_work.notify_one();
    }
    return bOpened ? Answer::Ready : Answer::Failed;
}

void ReadingTasks::ReadFiles(platform::tFilesToRead files)
{
    const Lock lock(m_mutex);
    m_files.emplace(std::move(files));
    m_work.notify_all();
}

Answer ReadingTasks::AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum)
{
    // Nearly all requested files have been read already.
    const Answer known = m_files->Look(n, nSum);
    if (known != Answer::NotYet) {
        return known;
    }
    Lock lock(m_mutex);
    if (nInHand != m_nInHand || m_inHandSince == Clock::time_point()) {
        m_nInHand = nInHand;
        m_inHandSince = Clock::now();
    }
    m_files->Asked(n);
    if (Stuck(n)) {
        return Answer::Stuck;
    }
    m_nWaitsFor = n;
    if (m_files->Look(n, nSum) == Answer::NotYet) { // check again, now with the lock
        Wait(lock);
    }
    m_nWaitsFor.reset();
    return m_files->Look(n, nSum);
}

/// True if the search has to wait for entry `n` longer than acceptable.
bool ReadingTasks::Stuck(std::uint32_t n) const
{
    return m_files->Open(n) && !m_files->HasFirst() &&
           (m_files->Unforeseen(n) || m_files->Swept() || Clock::now() - m_inHandSince > kPatience);
}

void ReadingTasks::ReadFirst(std::vector<std::uint32_t> entries)
{
    const Lock lock(m_mutex);
    m_files->ReadFirst(std::move(entries));
    m_work.notify_all();
}

/// Waits a short time for results; if there are no workers, does a piece of work itself.
void ReadingTasks::Wait(Lock& lock)
{
    if (m_bOutOfMemory) {
        throw std::bad_alloc();
    }
    if (m_nWorkers == 0 && m_start == Start::Later) {
        m_start = Start::Done;
        lock.unlock();
        AddWorkers();
        lock.lock();
    }
    if (m_nWorkers > 0 || m_start == Start::Later) {
        m_work.notify_one();
        m_done.wait_for(lock, kWait);
    } else {
        Worker worker(m_buffers, m_tableInUse, m_bEnded);
        WorkOnce(worker, lock);
    }
}

void ReadingTasks::End()
{
    Lock lock(m_mutex);
    m_bEnded = true;
    m_work.notify_all();
    m_left.wait_for(lock, kFarewell, [&] { return m_nWorkers == 0; });
    lock.unlock();
    // Wait for workers that are still reading the table; they finish soon.
    const std::unique_lock table(m_tableInUse);
}

void ReadingTasks::AddWorkers()
{
    Lock lock(m_mutex);
    while (m_nWorkers < m_nWorth && m_start == Start::Done && !m_bEnded) {
        m_start = m_startWorker();
        m_nWorkers += m_start == Start::Done ? 1U : 0U;
    }
}

void ReadingTasks::Work()
{
    Lock lock(m_mutex);
    try {
        Worker worker(m_buffers, m_tableInUse, m_bEnded);
        while (!m_bEnded) {
            if (!WorkOnce(worker, lock)) {
                m_work.wait(lock);
            } else if (m_nWorkers < m_nWorth && m_start == Start::Done) {
                lock.unlock();
                AddWorkers();
                lock.lock();
            }
        }
    } catch (const std::bad_alloc&) {
        if (!lock.owns_lock()) {
            lock.lock();
        }
        m_bOutOfMemory = true;
        m_done.notify_all();
    }
    --m_nWorkers;
    m_left.notify_all();
}

/// Does a piece of work, releasing the lock meanwhile; false if there is none.
bool ReadingTasks::WorkOnce(Worker& worker, Lock& lock)
{
    if (m_folders.MayTake()) {
        ListOne(worker, lock);
        return true;
    }
    if (m_files && m_files->MayTake()) {
        ReadSome(worker, lock);
        return true;
    }
    return false;
}

void ReadingTasks::ListOne(Worker& worker, Lock& lock)
{
    const auto folder = m_folders.Take();
    lock.unlock();
    worker.time.Begin();
    platform::FolderListing listing;
    const bool bOpened = worker.folders.List(folder->sPath, m_bIdentities, m_bEnded, listing);
    auto subfolders = m_folders.Subfolders(folder->sPath, listing);
    worker.time.End(1);
    lock.lock();
    const bool bMore = !subfolders.empty();
    m_folders.Listed(folder, bOpened, std::move(listing), std::move(subfolders));
    m_nWorth = m_count.Note(worker.time);
    if (bMore) {
        m_work.notify_one();
    }
    if (m_bWaitsForFolder && m_folders.ReadyForMuch()) {
        m_done.notify_one();
    }
}

void ReadingTasks::ReadSome(Worker& worker, Lock& lock)
{
    m_files->Take(worker.AtATime(), worker.entries);
    lock.unlock();
    worker.time.Begin();
    worker.Read(*m_files);
    worker.time.End(worker.entries.size());
    lock.lock();
    m_nWorth = m_count.Note(worker.time);
    std::int32_t nSum = 0;
    if (m_nWaitsFor && m_files->Look(*m_nWaitsFor, nSum) != Answer::NotYet) {
        m_done.notify_one();
    }
}

} // namespace desktop

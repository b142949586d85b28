// SPDX-License-Identifier: MIT
#pragma once

#include "BufferPool.h"
#include "FileQueue.h"
#include "FolderListing.h"
#include "FolderQueue.h"
#include "SearchReading.h"
#include "Worker.h"
#include "WorkerCount.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <string>
#include <vector>

namespace desktop {

/// What the search and its workers share: what is to be done, what has been done, who waits. Stays as long as
/// the last of them, since a worker may hang in a read when the search has long ended.
class ReadingTasks
{
public:
    /// What a try to start a worker comes to. Later: workers of an earlier search, which wait for a disk,
    /// have the threads that the system gives.
    enum class Start { Done, Later, Never };

    /// `nWorkers` is how many workers to begin with; `startWorker` is called where one more is worth having.
    ReadingTasks(const platform::tSearchedFolders& searched, std::size_t nWorkers,
                 std::function<Start()> startWorker);

    // The search's side: SearchReading's operations.
    platform::Answer ListFolder(const std::string& sPath, platform::FolderListing& listing);
    void ReadFiles(platform::tFilesToRead files);
    platform::Answer AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum);
    void ReadFirst(std::vector<std::uint32_t> entries);

    /// No more work, and nothing of the search is looked at any more. Workers that do not wait for a disk
    /// have gone when this returns.
    void End();

    /// Starts the workers that are worth having. Where none can ever be started the search does their work.
    void AddWorkers();

    /// Runs a worker until the end, on its thread.
    void Work();

private:
    using Lock = std::unique_lock<std::mutex>;

    bool WorkOnce(Worker& worker, Lock& lock);
    void ListOne(Worker& worker, Lock& lock);
    void ReadSome(Worker& worker, Lock& lock);
    void Wait(Lock& lock);
    [[nodiscard]] bool Stuck(std::uint32_t n) const;

    const bool m_bIdentities; ///< folders are told apart
    BufferPool m_buffers;
    std::atomic<bool> m_bEnded = false;
    std::shared_mutex m_tableInUse; ///< shared while a worker looks into the search's table

    std::mutex m_mutex; ///< guards what follows, but for what the queues say of themselves
    std::condition_variable m_work, m_done, m_left;
    FolderQueue m_folders;
    std::optional<FileQueue> m_files;
    bool m_bWaitsForFolder = false;           ///< the search does,
    std::optional<std::uint32_t> m_nWaitsFor; ///< or for this entry
    bool m_bOutOfMemory = false;
    std::uint32_t m_nInHand = 0;
    std::chrono::steady_clock::time_point m_inHandSince;
    WorkerCount m_count;
    std::size_t m_nWorth; ///< how many workers are worth having
    std::size_t m_nWorkers = 0;
    Start m_start = Start::Done; ///< what the last try came to
    std::function<Start()> m_startWorker;
};

} // namespace desktop

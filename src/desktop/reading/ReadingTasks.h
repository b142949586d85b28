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

/// The state shared by the search and its workers: open tasks, results, and who is waiting. Lives until the
/// last of them ends, since a worker may hang in a read long after the search has ended.
class ReadingTasks
{
public:
    /// The result of an attempt to start a worker. Later: the system's thread limit is used up by workers of
    /// an earlier search that are waiting for a disk.
    enum class Start { Done, Later, Never };

    /// `nWorkers` is the initial number of workers; `startWorker` is called to start another one.
    ReadingTasks(const platform::tSearchedFolders& searched, std::size_t nWorkers,
                 std::function<Start()> startWorker);

    // For the search: the operations of SearchReading.
    platform::Answer ListFolder(const std::string& sPath, platform::FolderListing& listing);
    void ReadFiles(platform::tFilesToRead files);
    platform::Answer AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum);
    void ReadFirst(std::vector<std::uint32_t> entries);

    /// Stops all work. Afterwards no worker accesses data of the search any more, and workers that are not
    /// waiting for a disk have ended.
    void End();

    /// Starts workers up to the useful number. If none can ever be started, the search does their work.
    void AddWorkers();

    /// Runs a worker on the calling thread until the end.
    void Work();

private:
    using Lock = std::unique_lock<std::mutex>;

    bool WorkOnce(Worker& worker, Lock& lock);
    void ListOne(Worker& worker, Lock& lock);
    void ReadSome(Worker& worker, Lock& lock);
    void Wait(Lock& lock);
    [[nodiscard]] bool Stuck(std::uint32_t n) const;

    const bool m_bIdentities; ///< whether the identity of folders is needed
    BufferPool m_buffers;
    std::atomic<bool> m_bEnded = false;
    std::shared_mutex m_tableInUse; ///< held shared while a worker reads the search's table

    std::mutex m_mutex; ///< guards what follows, except where the queues need no lock
    std::condition_variable m_work, m_done, m_left;
    FolderQueue m_folders;
    std::optional<FileQueue> m_files;
    bool m_bWaitsForFolder = false;           ///< the search is waiting for a folder
    std::optional<std::uint32_t> m_nWaitsFor; ///< the search is waiting for this entry
    bool m_bOutOfMemory = false;
    std::uint32_t m_nInHand = 0;
    std::chrono::steady_clock::time_point m_inHandSince;
    WorkerCount m_count;
    std::size_t m_nWorth; ///< the useful number of workers
    std::size_t m_nWorkers = 0;
    Start m_start = Start::Done; ///< result of the last attempt
    std::function<Start()> m_startWorker;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "BufferPool.h"
#include "FileBuffer.h"
#include "FileQueue.h"
#include "FolderAccess.h"
#include "WorkerCount.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <shared_mutex>
#include <string>
#include <vector>

namespace desktop {

/// The state and the work of one worker: everything that waits for a disk.
class Worker
{
public:
    /// Work is interrupted once `bEnded` is set. All arguments must outlive the worker.
    Worker(BufferPool& buffers, std::shared_mutex& tableInUse, const std::atomic<bool>& bEnded);

    FolderAccess folders;
    std::vector<std::uint32_t> entries; ///< the entries that the worker is reading
    WorkTime time;                      ///< of the current piece of work

    /// Reads the files of `entries` and stores the results in `files`. Skips entries that another worker has
    /// claimed first.
    void Read(FileQueue& files);

    /// How many files to take at a time. Chosen so that they take one to a few milliseconds, since taking
    /// work has a cost, and others have to wait for what a worker holds.
    [[nodiscard]] std::size_t AtATime() const { return m_nAtATime; }

private:
    struct tFile {
        std::uint32_t n;
        std::size_t nPathEnd;
        std::size_t nBytes;
    };

    bool LookUp(const FileQueue& files);
    void ReadOne(FileQueue& files, const tFile& file, const std::string& sPath);
    std::optional<std::int32_t> SumOf(const FileQueue& files, int hFile, std::size_t nBytes);

    BufferPool& m_buffers;
    std::shared_mutex& m_tableInUse;
    const std::atomic<bool>& m_bEnded;
    platform::FileBuffer m_small;
    std::vector<tFile> m_files; ///< the current files
    std::string m_sPaths;       ///< their paths, concatenated
    std::size_t m_nAtATime;
};

} // namespace desktop

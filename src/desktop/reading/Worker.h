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

/// What one worker needs for its work, and the work itself: all that waits for a disk.
class Worker
{
public:
    /// Breaks its work off once `bEnded`. All must outlive it.
    Worker(BufferPool& buffers, std::shared_mutex& tableInUse, const std::atomic<bool>& bEnded);

    FolderAccess folders;
    std::vector<std::uint32_t> entries; ///< those that the worker has in hand
    WorkTime time;                      ///< of the piece of work in hand

    /// Reads the files of `entries` and tells `files` what they come to. Those that another worker comes
    /// first with are left to it.
    void Read(FileQueue& files);

    /// How many files it is to be given at a time: so many that they take a millisecond or a few, since to
    /// ask for work costs, and others wait for what a worker has in hand.
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
    std::vector<tFile> m_files; ///< those in hand,
    std::string m_sPaths;       ///< and their paths, one behind the other
    std::size_t m_nAtATime;
};

} // namespace desktop

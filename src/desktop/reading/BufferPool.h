// SPDX-License-Identifier: MIT
#pragma once

#include "FileBuffer.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

namespace desktop {

/// The maximum number of workers of a search.
inline constexpr std::size_t kMaxWorkers = 16;

/// File buffers for many threads, with a limit on the total memory: each thread has a small buffer of its
/// own, and threads with a large file share a few large buffers. With the maximum number of workers and 5
/// large files of 10,000,000 bytes at a time this is 86 MB.
class BufferPool
{
public:
    static constexpr std::size_t kSmall = std::size_t{2} << 20;

    /// Exclusive use of a large buffer, for its own lifetime.
    class Turn
    {
    public:
        /// Waits for a free buffer, or returns without one once `bEnded` is set.
        Turn(BufferPool& pool, const std::atomic<bool>& bEnded);
        ~Turn();
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

        /// Returns room for `nBytes` bytes; null if out of memory, or without a buffer.
        std::uint8_t* Reserve(std::size_t nBytes)
        {
            return m_n ? m_pool.m_aLarge.at(*m_n).Reserve(nBytes) : nullptr;
        }

    private:
        BufferPool& m_pool;
        std::optional<std::size_t> m_n;
    };

    BufferPool();

private:
    static constexpr std::size_t kLarge = 5;

    std::array<platform::FileBuffer, kLarge> m_aLarge;
    std::mutex m_mutex;
    std::condition_variable m_returned;
    std::vector<std::size_t> m_free; ///< a stack: the pages of the last one used are mapped
};

} // namespace desktop

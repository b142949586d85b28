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

/// The most workers that a search ever has.
inline constexpr std::size_t kMaxWorkers = 16;

/// Room for the bytes of files, for many threads and bounded in all: each thread has a little of its own, and
/// those with a large file share what there is for such. With the greatest number of workers and 5 large
/// files of 10,000,000 bytes at a time that is 86 MB.
class BufferPool
{
public:
    static constexpr std::size_t kSmall = std::size_t{2} << 20;

    /// A large buffer that nobody else has while this lives.
    class Turn
    {
    public:
        /// Waits until there is one, or for nothing once `bEnded`.
        Turn(BufferPool& pool, const std::atomic<bool>& bEnded);
        ~Turn();
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

        /// Null if there is no memory, or no buffer.
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
    std::vector<std::size_t> m_free; ///< the one used last comes first: its pages are there
};

} // namespace desktop

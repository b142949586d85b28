// SPDX-License-Identifier: MIT
#include "BufferPool.h"

#include <chrono>

namespace desktop {
namespace {

constexpr std::chrono::milliseconds kLongestWait{20};

} // namespace

BufferPool::BufferPool()
{
    m_free.reserve(kLarge);
    for (std::size_t n = 0; n < kLarge; ++n) {
        m_free.push_back(n);
    }
}

BufferPool::Turn::Turn(BufferPool& pool, const std::atomic<bool>& bEnded) : m_pool(pool)
{
    std::unique_lock lock(m_pool.m_mutex);
    while (!bEnded) {
        if (!m_pool.m_free.empty()) {
            m_n = m_pool.m_free.back();
            m_pool.m_free.pop_back();
            return;
        }
        // With a timeout, because the holders of the buffers may hang in a read, and nothing notifies this
        // thread of the end of the search.
        m_pool.m_returned.wait_for(lock, kLongestWait);
    }
}

BufferPool::Turn::~Turn()
{
    if (m_n) {
        const std::lock_guard lock(m_pool.m_mutex);
        m_pool.m_free.push_back(*m_n);
        m_pool.m_returned.notify_one();
    }
}

} // namespace desktop

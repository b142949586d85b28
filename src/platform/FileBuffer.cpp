// SPDX-License-Identifier: MIT
#include "FileBuffer.h"

#include <sys/mman.h>

namespace platform {
namespace {

/// The size and alignment of a large page.
constexpr std::size_t kLargePage = std::size_t{2} << 20;

} // namespace

std::uint8_t* FileBuffer::Reserve(std::size_t nBytes)
{
    if (m_nRoom < nBytes || !m_aBytes) {
        m_aBytes.reset();
        const std::size_t nRoom = (nBytes / kLargePage + 1) * kLargePage;
        m_aBytes.reset(static_cast<std::uint8_t*>(std::aligned_alloc(kLargePage, nRoom)));
        m_nRoom = m_aBytes ? nRoom : 0;
        if (m_aBytes) {
            // Fails on a system without large pages, which then provides small ones.
            madvise(m_aBytes.get(), m_nRoom, MADV_HUGEPAGE);
        }
    }
    return m_aBytes.get();
}

} // namespace platform

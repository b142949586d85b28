// SPDX-License-Identifier: MIT
#include "ContentComparison.h"

#include "Retried.h"

#include <cstring>
#include <unistd.h>

namespace desktop {
namespace {

constexpr std::size_t kBuffer = 256 << 10;

} // namespace

ContentComparison::Result ContentComparison::Compare(int hFirst, int hSecond, const ProgressCall& goOn)
{
    if (!m_buffers) {
        m_buffers = std::make_unique_for_overwrite<char[]>(2 * kBuffer);
    }
    char* const pFirst = m_buffers.get();
    char* const pSecond = pFirst + kBuffer;
    std::int64_t nOffset = 0;
    while (true) {
        const std::ptrdiff_t nFirst = Fill(hFirst, pFirst, nOffset);
        if (nFirst < 0) {
            return Result::FirstNotRead;
        }
        const std::ptrdiff_t nSecond = Fill(hSecond, pSecond, nOffset);
        if (nSecond < 0) {
            return Result::SecondNotRead;
        }
        if (nFirst != nSecond || std::memcmp(pFirst, pSecond, static_cast<std::size_t>(nFirst)) != 0) {
            return Result::Different;
        }
        if (static_cast<std::size_t>(nFirst) < kBuffer) {
            return Result::Same;
        }
        nOffset += nFirst;
        if (!goOn(0)) {
            return Result::Cancelled;
        }
    }
}

/// Fills the buffer; returns less only at the end of the file, -1 on failure.
std::ptrdiff_t ContentComparison::Fill(int h, char* pBuffer, std::int64_t nOffset)
{
    std::size_t nFilled = 0;
    while (nFilled < kBuffer) {
        const ssize_t nRead = Retried([&] {
            return pread(h, pBuffer + nFilled, kBuffer - nFilled,
                         nOffset + static_cast<std::int64_t>(nFilled));
        });
        if (nRead < 0) {
            m_nError = errno;
            return -1;
        }
        if (nRead == 0) {
            break;
        }
        nFilled += static_cast<std::size_t>(nRead);
    }
    return static_cast<std::ptrdiff_t>(nFilled);
}

} // namespace desktop

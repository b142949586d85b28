// SPDX-License-Identifier: MIT
#include "FileCopier.h"

#include "Reasons.h"
#include "Retried.h"

#include <algorithm>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

constexpr std::size_t kChunk = 4 << 20;
constexpr std::size_t kBuffer = 256 << 10;

/// How far copying may get ahead of the disk, in bytes. Otherwise a slow disk would accept a gigabyte into
/// memory at once and then take a minute for the sync, without progress or a way to cancel.
constexpr std::int64_t kAhead = 32 << 20;

/// The next range of a file that is not a hole.
struct tRange {
    std::int64_t nStart;
    std::int64_t nEnd;
};

tRange NextData(int h, std::int64_t nOffset, std::int64_t cySize)
{
    const off_t nData = lseek(h, nOffset, SEEK_DATA);
    if (nData < 0) {
        // Only a hole is left, or the file system does not support this.
        return {errno == ENXIO ? cySize : nOffset, cySize};
    }
    const off_t nHole = lseek(h, nData, SEEK_HOLE);
    return {std::min(nData, cySize), nHole <= nData ? cySize : std::min(nHole, cySize)};
}

} // namespace

tEnding FileCopier::Copy()
{
    tEnding ending = CopyAll();
    if (!ending.IsDone()) {
        return ending;
    }
    char cBehind = 0;
    const ssize_t nBehind = Retried([&] { return pread(m_hFrom, &cBehind, 1, m_cySize); });
    if (nBehind == 0) {
        return ending;
    }
    return tEnding::NotDone(nBehind < 0
                                ? Reason(errno, Step::Read)
                                : "There is more in it than the size says that its file system gives.");
}

tEnding FileCopier::CopyAll()
{
    // Sharing the blocks of the original takes neither time nor space.
    if (Retried([&] { return ioctl(m_hTo, FICLONE, m_hFrom); }) == 0) {
        return {};
    }
    for (std::int64_t n = 0; n < m_cySize;) {
        const tRange range = NextData(m_hFrom, n, m_cySize);
        tEnding ending = CopyRange(range.nStart, range.nEnd);
        if (!ending.IsDone()) {
            return ending;
        }
        n = range.nEnd;
    }
    // A hole at the end.
    if (Retried([&] { return ftruncate(m_hTo, m_cySize); }) != 0) {
        return tEnding::NotDone(Reason(errno, Step::Write));
    }
    return {};
}

tEnding FileCopier::CopyRange(std::int64_t nStart, std::int64_t nEnd)
{
    while (nStart < nEnd) {
        const auto nBytes = static_cast<std::size_t>(std::min<std::int64_t>(nEnd - nStart, kChunk));
        std::int64_t nCopied = m_bInKernel ? CopyInKernel(nStart, nBytes) : 0;
        if (nCopied <= 0) {
            // Whatever the kernel's reason was: reading and writing either works or returns an error of its
            // own.
            m_bInKernel = false;
            tEnding ending;
            nCopied = CopyByHand(nStart, nBytes, ending);
            if (!ending.IsDone()) {
                return ending;
            }
        }
        nStart += nCopied;
        // Not for each piece, since a file may consist of many small ones.
        const bool bDue = nStart - m_nBegun >= static_cast<std::int64_t>(kChunk) || nStart >= m_cySize;
        if (bDue && !BringToDisk(nStart)) {
            return tEnding::NotDone(Reason(errno, Step::Write));
        }
        if (!m_goOn(nStart)) {
            return {tEnding::Kind::Cancelled, {}};
        }
    }
    return {};
}

/// Starts writing what has been copied since the last call, and waits for what is far behind. False on a
/// write error, which the final sync would not report again.
bool FileCopier::BringToDisk(std::int64_t nEnd)
{
    const std::int64_t nStart = std::exchange(m_nBegun, nEnd);
    if (m_bBegins &&
        Retried([&] { return sync_file_range(m_hTo, nStart, nEnd - nStart, SYNC_FILE_RANGE_WRITE); }) != 0) {
        // If the call is missing or denied, the final sync does everything.
        if (errno != ENOSYS && errno != EPERM) {
            return false;
        }
        m_bBegins = false;
    }
    const std::int64_t nDue = nEnd - kAhead;
    if (!m_bBegins || nDue - m_nOnDisk < static_cast<std::int64_t>(kChunk)) {
        return true;
    }
    const off_t nFrom = std::exchange(m_nOnDisk, nDue);
    constexpr unsigned nWait =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return Retried([&] { return sync_file_range(m_hTo, nFrom, nDue - nFrom, nWait); }) == 0;
}

std::int64_t FileCopier::CopyInKernel(std::int64_t nOffset, std::size_t nBytes)
{
    off_t nFrom = nOffset;
    off_t nTo = nOffset;
    return Retried([&] { return copy_file_range(m_hFrom, &nFrom, m_hTo, &nTo, nBytes, 0); });
}

std::int64_t FileCopier::CopyByHand(std::int64_t nOffset, std::size_t nBytes, tEnding& ending)
{
    if (!m_buffer) {
        m_buffer = std::make_unique_for_overwrite<char[]>(kBuffer);
    }
    const ssize_t nRead =
        Retried([&] { return pread(m_hFrom, m_buffer.get(), std::min(nBytes, kBuffer), nOffset); });
    if (nRead <= 0) {
        ending = tEnding::NotDone(nRead < 0 ? Reason(errno, Step::Read)
                                            : "It ends before the size that its file system gives.");
        return 0;
    }
    for (ssize_t n = 0; n < nRead;) {
        const ssize_t nWritten = Retried([&] {
            return pwrite(m_hTo, m_buffer.get() + n, static_cast<std::size_t>(nRead - n), nOffset + n);
        });
        if (nWritten <= 0) {
            ending = tEnding::NotDone(Reason(nWritten < 0 ? errno : ENOSPC, Step::Write));
            return 0;
        }
        n += nWritten;
    }
    return nRead;
}

} // namespace desktop

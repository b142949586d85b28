// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace desktop {

/// Copies the content of an open file to another new one: shares its blocks if the file system can, otherwise
/// copies in pieces. Holes are preserved.
class FileCopier
{
public:
    /// Copies `cySize` bytes of `hFrom`, which must have that many. Both descriptors must outlive the copier.
    FileCopier(int hFrom, int hTo, std::int64_t cySize, const ProgressCall& goOn)
        : m_hFrom(hFrom), m_hTo(hTo), m_cySize(cySize), m_goOn(goOn)
    {
    }

    /// Writes to disk with little delay while copying; the caller has to sync the rest. NotDone also if the
    /// file turns out to be longer than its size.
    tEnding Copy();

private:
    tEnding CopyAll();
    tEnding CopyRange(std::int64_t nStart, std::int64_t nEnd);
    std::int64_t CopyInKernel(std::int64_t nOffset, std::size_t nBytes);
    bool BringToDisk(std::int64_t nEnd);
    std::int64_t CopyByHand(std::int64_t nOffset, std::size_t nBytes, tEnding& ending);

    int m_hFrom;
    int m_hTo;
    std::int64_t m_cySize;
    const ProgressCall& m_goOn;
    bool m_bInKernel = true;    ///< false once the kernel has refused to copy by itself
    bool m_bBegins = true;      ///< writing to disk is started while copying
    std::int64_t m_nBegun = 0;  ///< writing to disk has been started up to this offset
    std::int64_t m_nOnDisk = 0; ///< known to be on disk up to this offset
    std::unique_ptr<char[]> m_buffer;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace desktop {

/// Brings the content of one open file into another, new one: sharing its blocks where the file system can,
/// otherwise piece by piece. Holes stay holes.
class FileCopier
{
public:
    /// Copies `cySize` bytes of `hFrom`, which must have so many. Both descriptors must outlive the copier.
    FileCopier(int hFrom, int hTo, std::int64_t cySize, const ProgressCall& goOn)
        : m_hFrom(hFrom), m_hTo(hTo), m_cySize(cySize), m_goOn(goOn)
    {
    }

    /// The disk follows close behind, but what it has at the end is to be synced by the caller. Not done
    /// either if there is more to read than the size says.
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
    bool m_bInKernel = true;    ///< the kernel has not yet refused to copy by itself
    bool m_bBegins = true;      ///< the disk begins while the copying goes on
    std::int64_t m_nBegun = 0;  ///< up to here the disk has been told to begin
    std::int64_t m_nOnDisk = 0; ///< up to here it is known to have written all
    std::unique_ptr<char[]> m_buffer;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace desktop {

/// Compares the contents of open files to the byte.
class ContentComparison
{
public:
    enum class Result { Same, Different, Cancelled, FirstNotRead, SecondNotRead };

    /// Reads both from their beginnings, as far as they are alike, whatever their sizes are said to be.
    Result Compare(int hFirst, int hSecond, const ProgressCall& goOn);

    /// The system's error number if one of the two could not be read.
    [[nodiscard]] int Error() const { return m_nError; }

private:
    std::ptrdiff_t Fill(int h, char* pBuffer, std::int64_t nOffset);

    std::unique_ptr<char[]> m_buffers; ///< one for each file
    int m_nError = 0;
};

} // namespace desktop

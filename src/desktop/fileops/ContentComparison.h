// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace desktop {

/// Compares the contents of open files byte by byte.
class ContentComparison
{
public:
    enum class Result { Same, Different, Cancelled, FirstNotRead, SecondNotRead };

    /// Reads both from the beginning until they differ or end, whatever their reported sizes.
    Result Compare(int hFirst, int hSecond, const ProgressCall& goOn);

    /// The error number if one of the files could not be read.
    [[nodiscard]] int Error() const { return m_nError; }

private:
    std::ptrdiff_t Fill(int h, char* pBuffer, std::int64_t nOffset);

    std::unique_ptr<char[]> m_buffers; ///< one for each file
    int m_nError = 0;
};

} // namespace desktop

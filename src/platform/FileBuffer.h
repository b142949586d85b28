// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace platform {

/// A buffer for the contents of one file at a time. The memory is reused from file to file, the contents are
/// not kept: pages that the system has to provide and clear for every file cost more than reading the file.
/// It uses large pages where it can, since they are faster to access than many small ones.
class FileBuffer
{
public:
    /// Returns room for `nBytes` bytes, uninitialised and valid until the next call. Null if out of memory.
    std::uint8_t* Reserve(std::size_t nBytes);

private:
    struct tFree {
        void operator()(std::uint8_t* pBytes) const { std::free(pBytes); }
    };

    std::unique_ptr<std::uint8_t, tFree> m_aBytes;
    std::size_t m_nRoom = 0;
};

} // namespace platform

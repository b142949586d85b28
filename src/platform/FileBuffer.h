// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace platform {

/// Room for the bytes of one file at a time. The room is kept from file to file, what was in it is not: pages
/// that the system has to provide and clear anew for every file cost more than reading the file. Few large
/// ones are reached quicker than many small ones.
class FileBuffer
{
public:
    /// Room for `nBytes` bytes, uninitialised, until the next call. Null if there is no memory.
    std::uint8_t* Reserve(std::size_t nBytes);

private:
    struct tFree {
        void operator()(std::uint8_t* pBytes) const { std::free(pBytes); }
    };

    std::unique_ptr<std::uint8_t, tFree> m_aBytes;
    std::size_t m_nRoom = 0;
};

} // namespace platform

// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace search {

/// The table of a byte-wise loop. Entries are 32 bits wide for either algorithm, so that both loops index
/// alike.
using tCRCTable = std::array<std::int32_t, 256>;

/// Entry `nByte` of the table of CRC-32: what that byte leaves in an empty register.
constexpr std::uint32_t CRC32TableEntry(std::uint32_t nByte)
{
    std::uint32_t nEntry = nByte;
    for (int nBit = 0; nBit < 8; ++nBit) {
        nEntry = (nEntry >> 1) ^ ((nEntry & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return nEntry;
}

/// A loop that runs `nBytes` bytes from `pFirst` through the register at `*pRegister`, which is read once
/// before the first byte and written once after the last. `pTable` is the first of the 256 entries of the
/// algorithm's table. Nothing is owned, no alignment is needed, and with `nBytes` 0 `pFirst` may be null.
using tCRCKernel = void (*)(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                            std::size_t nBytes);

/// CRC-16, most significant bit first: a byte at a time. Only the low 16 bits of the register and of the
/// entries are read; the register comes back with its upper half zero.
void AddToCRC16(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                std::size_t nBytes);

/// CRC-32, least significant bit first: a byte at a time. What the faster loops are measured against.
void AddToCRC32ByTable(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                       std::size_t nBytes);

/// The same result, 16 bytes at a time, by tables of its own; needs nothing of the processor.
void AddToCRC32BySlicing(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                         std::size_t nBytes);

/// The same result by carry-less multiplication. Only to be called where CanFold().
void AddToCRC32ByFolding(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                         std::size_t nBytes);

/// True if this processor, and this build, can run AddToCRC32ByFolding.
[[nodiscard]] bool CanFold();

/// The fastest CRC-32 loop that this processor can run.
[[nodiscard]] tCRCKernel FastestCRC32();

} // namespace search

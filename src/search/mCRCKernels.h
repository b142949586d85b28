// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace search {

/// The table of a bytewise loop. Entries are 32 bits wide for both algorithms, so that both loops index
/// alike.
using tCRCTable = std::array<std::int32_t, 256>;

/// Entry `nByte` of the CRC-32 table: the register after this byte, starting from zero.
constexpr std::uint32_t CRC32TableEntry(std::uint32_t nByte)
{
    std::uint32_t nEntry = nByte;
    for (int nBit = 0; nBit < 8; ++nBit) {
        nEntry = (nEntry >> 1) ^ ((nEntry & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return nEntry;
}

/// A loop that processes `nBytes` bytes from `pFirst` with the register at `*pRegister`, which is read once
/// at the start and written once at the end. `pTable` points to the 256 entries of the algorithm's table. No
/// alignment is required, and `pFirst` may be null if `nBytes` is 0.
using tCRCKernel = void (*)(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                            std::size_t nBytes);

/// CRC-16, most significant bit first, a byte at a time. Uses only the low 16 bits of the register and the
/// entries; the upper half of the register is zero afterwards.
void AddToCRC16(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                std::size_t nBytes);

/// CRC-32, least significant bit first, a byte at a time. The reference for the faster loops.
void AddToCRC32ByTable(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                       std::size_t nBytes);

/// The same result, 16 bytes at a time, with tables of its own; runs on any processor.
void AddToCRC32BySlicing(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                         std::size_t nBytes);

/// The same result by carry-less multiplication. Must only be called if CanFold().
void AddToCRC32ByFolding(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                         std::size_t nBytes);

/// True if this processor and this build support AddToCRC32ByFolding.
[[nodiscard]] bool CanFold();

/// The fastest CRC-32 loop for this processor.
[[nodiscard]] tCRCKernel FastestCRC32();

} // namespace search

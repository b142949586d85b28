// SPDX-License-Identifier: MIT
#include "mCRCKernels.h"

namespace search {
namespace {

constexpr std::size_t kSlice = 16;

using tSlices = std::array<std::array<std::uint32_t, 256>, kSlice>;

// Entry i of table n is the contribution of byte i to the register after n more zero bytes. The bytes of a
// slice can then be looked up independently, whereas the bytewise loop waits for each lookup to know the next
// index.
constexpr tSlices BuildSlices()
{
    tSlices slices{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        slices[0][i] = CRC32TableEntry(i);
    }
    for (std::size_t n = 1; n < kSlice; ++n) {
        for (std::size_t i = 0; i < 256; ++i) {
            slices[n][i] = (slices[n - 1][i] >> 8) ^ slices[0][slices[n - 1][i] & 0xFFU];
        }
    }
    return slices;
}

constexpr tSlices kSlices = BuildSlices();

/// The four bytes at `p`, lowest first: the byte order of the register on any machine.
std::uint32_t WordAt(const std::uint8_t* p)
{
    return std::uint32_t{p[0]} | std::uint32_t{p[1]} << 8 | std::uint32_t{p[2]} << 16 |
           std::uint32_t{p[3]} << 24;
}

/// The contribution of the four bytes in `nWord` to the register if `nAfter` bytes of the slice follow them.
std::uint32_t SliceOf(std::uint32_t nWord, std::size_t nAfter)
{
    return kSlices[nAfter + 3][nWord & 0xFFU] ^ kSlices[nAfter + 2][(nWord >> 8) & 0xFFU] ^
           kSlices[nAfter + 1][(nWord >> 16) & 0xFFU] ^ kSlices[nAfter][nWord >> 24];
}

} // namespace

void AddToCRC16(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                std::size_t nBytes)
{
    std::uint32_t nRegister = static_cast<std::uint32_t>(*pRegister) & 0xFFFFU;
    for (std::size_t i = 0; i < nBytes; ++i) {
        const std::uint32_t nIndex = (nRegister >> 8) ^ pFirst[i];
        nRegister = ((nRegister << 8) ^ static_cast<std::uint32_t>(pTable[nIndex])) & 0xFFFFU;
    }
    *pRegister = static_cast<std::int32_t>(nRegister);
}

void AddToCRC32ByTable(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                       std::size_t nBytes)
{
    auto nRegister = static_cast<std::uint32_t>(*pRegister);
    for (std::size_t i = 0; i < nBytes; ++i) {
        const std::uint32_t nIndex = (nRegister ^ pFirst[i]) & 0xFFU;
        nRegister = (nRegister >> 8) ^ static_cast<std::uint32_t>(pTable[nIndex]);
    }
    *pRegister = static_cast<std::int32_t>(nRegister);
}

void AddToCRC32BySlicing(std::int32_t* pRegister, const std::uint8_t* pFirst, const std::int32_t* pTable,
                         std::size_t nBytes)
{
    auto nRegister = static_cast<std::uint32_t>(*pRegister);
    for (; nBytes >= kSlice; nBytes -= kSlice, pFirst += kSlice) {
        nRegister = SliceOf(WordAt(pFirst) ^ nRegister, 12) ^ SliceOf(WordAt(pFirst + 4), 8) ^
                    SliceOf(WordAt(pFirst + 8), 4) ^ SliceOf(WordAt(pFirst + 12), 0);
    }
    auto nRest = static_cast<std::int32_t>(nRegister);
    AddToCRC32ByTable(&nRest, pFirst, pTable, nBytes);
    *pRegister = nRest;
}

tCRCKernel FastestCRC32()
{
    return CanFold() ? AddToCRC32ByFolding : AddToCRC32BySlicing;
}

} // namespace search

// SPDX-License-Identifier: MIT
// Each implementation, with the data split in any way, gives the same result as a loop over single bits.

#include "Require.h"
#include "cCRC.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <vector>

namespace {

using tBytes = std::vector<std::uint8_t>;

std::uint32_t BitwiseCRC32(std::uint32_t nRegister, std::span<const std::uint8_t> bytes)
{
    for (const std::uint8_t nByte : bytes) {
        nRegister ^= nByte;
        for (int nBit = 0; nBit < 8; ++nBit) {
            nRegister = (nRegister >> 1U) ^ ((nRegister & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return nRegister;
}

std::uint32_t BitwiseCRC16(std::uint32_t nRegister, std::span<const std::uint8_t> bytes)
{
    for (const std::uint8_t nByte : bytes) {
        nRegister ^= static_cast<std::uint32_t>(nByte) << 8U;
        for (int nBit = 0; nBit < 8; ++nBit) {
            nRegister = (nRegister << 1U) ^ ((nRegister & 0x8000U) != 0 ? 0x1021U : 0U);
        }
    }
    return nRegister & 0xFFFFU;
}

/// The lookup table of the byte-wise loop.
search::tCRCTable Table32()
{
    search::tCRCTable table{};
    for (std::size_t n = 0; n < table.size(); ++n) {
        const auto nByte = static_cast<std::uint8_t>(n);
        table[n] = static_cast<std::int32_t>(BitwiseCRC32(0, {&nByte, 1}));
    }
    return table;
}

void CheckKernel(search::tCRCKernel kernel, std::uint32_t nStart, const tBytes& bytes, std::size_t nCut)
{
    static const search::tCRCTable table = Table32();
    auto nWhole = static_cast<std::int32_t>(nStart);
    auto nSplit = nWhole;
    kernel(&nWhole, bytes.data(), table.data(), bytes.size());
    Require(static_cast<std::uint32_t>(nWhole) == BitwiseCRC32(nStart, bytes), "CRC-32 is right");
    kernel(&nSplit, bytes.data(), table.data(), nCut);
    kernel(&nSplit, bytes.data() + nCut, table.data(), bytes.size() - nCut);
    Require(nSplit == nWhole, "a split changes nothing");
}

void CheckClass(search::cCRC& crc, const tBytes& bytes, FuzzedDataProvider& input)
{
    const std::int32_t nCalculated = crc.CalculateBytes(bytes);
    crc.Clear();
    for (std::size_t nDone = 0; nDone < bytes.size();) {
        const auto nPart = input.ConsumeIntegralInRange<std::size_t>(1, bytes.size() - nDone);
        const auto part = std::span(bytes).subspan(nDone, nPart);
        if (input.ConsumeBool()) {
            crc.AddBytes(part);
        } else {
            crc.AddString({reinterpret_cast<const char*>(part.data()), part.size()});
        }
        nDone += nPart;
    }
    Require(crc.Value() == nCalculated, "adding parts comes to the whole");
    const auto nExpected = crc.Algorithm() != 0 ? ~BitwiseCRC32(0xFFFFFFFFU, bytes) : BitwiseCRC16(0, bytes);
    Require(static_cast<std::uint32_t>(nCalculated) == nExpected, "the checksum is right");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    const auto nStart = input.ConsumeIntegral<std::uint32_t>();
    const std::size_t nRepeats = input.ConsumeIntegralInRange<std::size_t>(1, 8);
    const tBytes pattern =
        input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegralInRange<std::size_t>(0, 600));
    tBytes bytes;
    for (std::size_t n = 0; n < nRepeats; ++n) {
        bytes.insert(bytes.end(), pattern.begin(), pattern.end());
    }
    const std::size_t nCut = input.ConsumeIntegralInRange<std::size_t>(0, bytes.size());
    CheckKernel(search::AddToCRC32ByTable, nStart, bytes, nCut);
    CheckKernel(search::AddToCRC32BySlicing, nStart, bytes, nCut);
    if (search::CanFold()) {
        CheckKernel(search::AddToCRC32ByFolding, nStart, bytes, nCut);
    }
    search::cCRC crc;
    CheckClass(crc, bytes, input);
    crc.Algorithm(0);
    CheckClass(crc, bytes, input);
    return 0;
}

// SPDX-License-Identifier: MIT
#include "cCRC.h"

#include "System.h"

#include <algorithm>

namespace search {
namespace {

/// Keeps a file open for its own lifetime.
class cOpenFile
{
public:
    explicit cOpenFile(const std::string& sPath) : m_hFile(platform::System().files->CreateFileA(sPath)) {}
    ~cOpenFile()
    {
        if (m_hFile != platform::INVALID_HANDLE_VALUE) {
            platform::System().files->CloseHandle(m_hFile);
        }
    }
    cOpenFile(const cOpenFile&) = delete;
    cOpenFile& operator=(const cOpenFile&) = delete;

    [[nodiscard]] platform::FileHandle Handle() const { return m_hFile; }

private:
    const platform::FileHandle m_hFile;
};

std::span<const std::uint8_t> BytesOf(std::string_view Text)
{
    return {reinterpret_cast<const std::uint8_t*>(Text.data()), Text.size()};
}

constexpr tCRCTable Table32()
{
    tCRCTable aTable{};
    for (std::uint32_t i = 0; i < aTable.size(); ++i) {
        aTable[i] = static_cast<std::int32_t>(CRC32TableEntry(i));
    }
    return aTable;
}

std::int32_t SumCRC32(const std::uint8_t* pFirst, std::size_t nBytes)
{
    static constexpr tCRCTable kTable = Table32();
    static const tCRCKernel AddToCRC32 = FastestCRC32();
    std::int32_t nRegister = -1;
    AddToCRC32(&nRegister, pFirst, kTable.data(), nBytes);
    return ~nRegister;
}

std::int32_t SumCRC16(const std::uint8_t* pFirst, std::size_t nBytes)
{
    cCRC engine;
    engine.Algorithm(0);
    return engine.CalculateBytes({pFirst, nBytes});
}

} // namespace

cCRC::cCRC()
{
    Algorithm(1);
}

std::int32_t cCRC::AddBytes(std::span<const std::uint8_t> ByteArray)
{
    static const tCRCKernel AddToCRC32 = FastestCRC32();
    if (bCRC32) {
        AddToCRC32(&nCRC32, ByteArray.data(), aTable32.data(), ByteArray.size());
    } else {
        AddToCRC16(&nCRC16, ByteArray.data(), aTable16.data(), ByteArray.size());
    }
    return Value();
}

std::int32_t cCRC::AddString(std::string_view Text)
{
    return AddBytes(BytesOf(Text));
}

void cCRC::Algorithm(std::int32_t New_Value)
{
    bCRC32 = New_Value != 0;
    if (bCRC32 && !bTable32Ready) {
        BuildTable32();
    }
    if (!bCRC32 && !bTable16Ready) {
        BuildTable16();
    }
    Clear();
}

std::int32_t cCRC::Algorithm() const
{
    return bCRC32 ? -1 : 0;
}

std::int32_t cCRC::CalculateBytes(std::span<const std::uint8_t> ByteArray)
{
    Clear();
    return AddBytes(ByteArray);
}

tChecksum cCRC::CalculateFile(const std::string& Filename)
{
    const cOpenFile file(Filename);
    const bool bOpen = file.Handle() != platform::INVALID_HANDLE_VALUE;
    const std::int64_t nSize = bOpen ? platform::System().files->FileLength(file.Handle()) : -1;
    // An empty file counts as unreadable: opening it may just have created it.
    return CalculateOpened(file.Handle(), nSize != 0 ? nSize : -1);
}

tChecksum cCRC::CalculateFiles(const std::string& sFile, std::int32_t nSize)
{
    const cOpenFile file(sFile);
    return CalculateOpened(file.Handle(), nSize);
}

tChecksum cCRC::CalculateFiles(std::optional<std::int32_t> nSum)
{
    if (!nSum) {
        return kNoChecksum;
    }
    Clear();
    (bCRC32 ? nCRC32 : nCRC16) = bCRC32 ? ~*nSum : *nSum;
    return *nSum;
}

cCRC::tSumOfBytes cCRC::SumOfBytes() const
{
    return bCRC32 ? SumCRC32 : SumCRC16;
}

tChecksum cCRC::CalculateOpened(platform::FileHandle hFile, std::int64_t nSize)
{
    if (hFile == platform::INVALID_HANDLE_VALUE || nSize < 0) {
        return kNoChecksum;
    }
    const auto nBytes = static_cast<std::size_t>(nSize);
    std::uint8_t* const aBytes = buffer.Reserve(nBytes);
    if (aBytes == nullptr) {
        return kNoChecksum;
    }
    const platform::tReadResult result = platform::System().files->ReadFile(hFile, aBytes, nBytes);
    if (!result.bRead) {
        return kNoChecksum;
    }
    // Only the rest is zeroed, after the read, since a read nearly always fills the whole buffer.
    std::fill(aBytes + std::min(result.nBytes, nBytes), aBytes + nBytes, std::uint8_t{0});
    return CalculateBytes({aBytes, nBytes});
}

std::int32_t cCRC::CalculateString(std::string_view Text)
{
    return CalculateBytes(BytesOf(Text));
}

std::int32_t cCRC::Value() const
{
    return bCRC32 ? ~nCRC32 : nCRC16 & 0xFFFF;
}

void cCRC::Value(std::int32_t New_Value)
{
    (bCRC32 ? nCRC32 : nCRC16) = New_Value;
}

void cCRC::Clear()
{
    nCRC16 = 0;
    nCRC32 = -1;
}

void cCRC::BuildTable16()
{
    for (std::uint32_t i = 0; i < aTable16.size(); ++i) {
        std::uint32_t r = 0;
        std::uint32_t a = i * 256;
        for (int nBit = 0; nBit < 8; ++nBit, a *= 2) {
            r = ((r ^ a) & 0x8000U) != 0 ? (r * 2) ^ 0x1021U : r * 2;
        }
        aTable16[i] = static_cast<std::int32_t>(r);
    }
    bTable16Ready = true;
}

void cCRC::BuildTable32()
{
    aTable32 = Table32();
    bTable32Ready = true;
}

} // namespace search

// SPDX-License-Identifier: MIT
#pragma once

#include "FileBuffer.h"
#include "FileSystem.h"
#include "mCRCKernels.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace search {

/// What a file's checksum came to: the 32 bits as a signed number, or kNoChecksum.
using tChecksum = std::variant<std::int32_t, std::string_view>;

/// Stands for the checksum of a file that could not be read.
inline constexpr std::string_view kNoChecksum = "00000000";

/// A running CRC-32 (ISO 3309, IEEE 802.3) or CRC-16 (XMODEM) over bytes, texts and files. Starts as CRC-32.
/// What is added extends the running value; what is calculated starts afresh and leaves its own behind.
class cCRC
{
public:
    cCRC();

    /// Adds the bytes to the running value and returns it.
    std::int32_t AddBytes(std::span<const std::uint8_t> ByteArray);

    /// Adds the bytes of the text as they are, without a terminator.
    std::int32_t AddString(std::string_view Text);

    /// Selects CRC-16 by 0, CRC-32 by anything else, and clears the running value even if nothing changes.
    void Algorithm(std::int32_t New_Value);

    /// 0 for CRC-16, -1 for CRC-32.
    [[nodiscard]] std::int32_t Algorithm() const;

    /// The checksum of just these bytes.
    std::int32_t CalculateBytes(std::span<const std::uint8_t> ByteArray);

    /// The checksum of all of file `Filename`, read whole into memory. A file that is missing is created
    /// empty; an empty file, like one that cannot be read or held in memory, gives kNoChecksum and leaves the
    /// running value alone.
    tChecksum CalculateFile(const std::string& Filename);

    /// The checksum of the first `nSize` bytes of file `sFile`, zeros taking the place of what the file does
    /// not have. A file that is missing is created empty. One that cannot be opened or read, an `nSize` below
    /// 0 and a lack of memory give kNoChecksum and leave the running value alone.
    tChecksum CalculateFiles(const std::string& sFile, std::int32_t nSize);

    /// The same for bytes that have been run through SumOfBytes() elsewhere: `nSum` is what that came to,
    /// none if they could not be read.
    tChecksum CalculateFiles(std::optional<std::int32_t> nSum);

    /// What CalculateBytes makes of bytes under this algorithm, as a function of nothing else, for any
    /// thread.
    using tSumOfBytes = std::int32_t (*)(const std::uint8_t* pFirst, std::size_t nBytes);
    [[nodiscard]] tSumOfBytes SumOfBytes() const;

    /// The checksum of just this text.
    std::int32_t CalculateString(std::string_view Text);

    /// The checksum so far: any 32 bits for CRC-32, 0 to 65535 for CRC-16.
    [[nodiscard]] std::int32_t Value() const;

    /// Puts `New_Value` into the register as it is. Under CRC-32 Value() then reads as its complement.
    void Value(std::int32_t New_Value);

    /// A number of another type might not fit; whoever has one must decide what it is to become.
    template <typename T>
        requires(!std::same_as<T, std::int32_t>)
    void Value(T New_Value) = delete;

    /// Takes either algorithm's running value back to where it starts.
    void Clear();

private:
    void BuildTable16();
    void BuildTable32();
    tChecksum CalculateOpened(platform::FileHandle hFile, std::int64_t nSize);

    bool bCRC32 = true;
    std::int32_t nCRC16 = 0; // the low 16 bits count
    bool bTable16Ready = false;
    tCRCTable aTable16{};
    std::int32_t nCRC32 = 0; // kept without the final complement
    bool bTable32Ready = false;
    tCRCTable aTable32{};
    platform::FileBuffer buffer;
};

} // namespace search

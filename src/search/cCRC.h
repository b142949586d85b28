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

/// The checksum of a file: 32 bits as a signed number, or kNoChecksum.
using tChecksum = std::variant<std::int32_t, std::string_view>;

/// The result for a file that could not be read.
inline constexpr std::string_view kNoChecksum = "00000000";

/// A running CRC-32 (ISO 3309, IEEE 802.3) or CRC-16 (XMODEM) over bytes, texts and files. Initially CRC-32.
/// The Add functions extend the running value; the Calculate functions start over and leave their result as
/// the running value.
class cCRC
{
public:
    cCRC();

    /// Adds the bytes to the running value and returns it.
    std::int32_t AddBytes(std::span<const std::uint8_t> ByteArray);

    /// Adds the bytes of the text, without a terminator, and returns the running value.
    std::int32_t AddString(std::string_view Text);

    /// Selects the algorithm: 0 for CRC-16, anything else for CRC-32. Always clears the running value, even
    /// if the algorithm stays the same.
    void Algorithm(std::int32_t New_Value);

    /// 0 for CRC-16, -1 for CRC-32.
    [[nodiscard]] std::int32_t Algorithm() const;

    /// The checksum of these bytes alone.
    std::int32_t CalculateBytes(std::span<const std::uint8_t> ByteArray);

    /// The checksum of the whole file `Filename`, which is read into memory. A missing file is created empty.
    /// Returns kNoChecksum, without changing the running value, for an empty file and for one that cannot be
    /// read or does not fit into memory.
    tChecksum CalculateFile(const std::string& Filename);

    /// The checksum of the first `nSize` bytes of file `sFile`, padded with zeros if the file is shorter. A
    /// missing file is created empty. Returns kNoChecksum, without changing the running value, if the file
    /// cannot be opened or read, if `nSize` is negative, or if memory runs out.
    tChecksum CalculateFiles(const std::string& sFile, std::int32_t nSize);

    /// The same for bytes that SumOfBytes() has processed elsewhere: `nSum` is its result, empty if the bytes
    /// could not be read.
    tChecksum CalculateFiles(std::optional<std::int32_t> nSum);

    /// The computation of CalculateBytes for the current algorithm, as a pure function that any thread can
    /// call.
    using tSumOfBytes = std::int32_t (*)(const std::uint8_t* pFirst, std::size_t nBytes);
    [[nodiscard]] tSumOfBytes SumOfBytes() const;

    /// The checksum of this text alone.
    std::int32_t CalculateString(std::string_view Text);

    /// The checksum so far: any 32 bits for CRC-32, 0 to 65535 for CRC-16.
    [[nodiscard]] std::int32_t Value() const;

    /// Sets the register to `New_Value`. With CRC-32, Value() then returns its complement.
    void Value(std::int32_t New_Value);

    /// Other types are rejected: their values might not fit, and the caller has to decide on the conversion.
    template <typename T>
        requires(!std::same_as<T, std::int32_t>)
    void Value(T New_Value) = delete;

    /// Resets the running value of both algorithms.
    void Clear();

private:
    void BuildTable16();
    void BuildTable32();
    tChecksum CalculateOpened(platform::FileHandle hFile, std::int64_t nSize);

    bool bCRC32 = true;
    std::int32_t nCRC16 = 0; // only the low 16 bits are used
    bool bTable16Ready = false;
    tCRCTable aTable16{};
    std::int32_t nCRC32 = 0; // before the final complement
    bool bTable32Ready = false;
    tCRCTable aTable32{};
    platform::FileBuffer buffer;
};

} // namespace search

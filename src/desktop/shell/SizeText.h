// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>

namespace desktop {

/// A number with the user's digit grouping.
QString NumberText(std::int64_t nNumber);

/// "1 file", "12,345 files".
QString CountText(std::int64_t nCount, const char* pOne, const char* pMany);

/// A short form of a size: "120 bytes", "12.1 KiB", with 1,024 bytes to the KiB.
QString ShortSize(std::int64_t cySize);

/// A size in bytes and in short form: "12,345 bytes / 12.1 KiB"; below 1,024 only in bytes.
QString FullSize(std::int64_t cySize);

} // namespace desktop

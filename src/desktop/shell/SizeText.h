// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>

namespace desktop {

/// A number with its digits grouped as the user does it.
QString NumberText(std::int64_t nNumber);

/// "1 file", "12,345 files".
QString CountText(std::int64_t nCount, const char* pOne, const char* pMany);

/// A size as one reads it at a glance: "120 bytes", "12.1 KiB", 1,024 bytes to the KiB.
QString ShortSize(std::int64_t cySize);

/// A size to the byte and at a glance: "12,345 bytes / 12.1 KiB"; below 1,024 bytes only the former.
QString FullSize(std::int64_t cySize);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Full Unicode case folding of a valid UTF-8 text without NULs: two texts that differ only in letter case
/// fold to the same text.
std::string FoldCase(std::string_view sText);

/// A whole number with the user's digit grouping: "##,##0".
std::string FormatNumber(std::int64_t nNumber);

/// `dtDate`, in days since 30 December 1899, in the user's formats: short date, one blank, long time.
std::string FormatDateTime(double dtDate);

/// Inserts `sSeparator` between the groups of digits of a whole number. `grouping` holds the group sizes from
/// the right, as in struct lconv: the last one applies to all remaining groups, and CHAR_MAX ends the
/// grouping.
std::string GroupDigits(const std::string& sDigits, const std::string& sSeparator,
                        const std::string& grouping);

} // namespace platform

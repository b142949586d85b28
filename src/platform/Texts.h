#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Full Unicode case folding of a valid UTF-8 text: two texts that differ only in letter case fold to the
/// same text.
std::string FoldCase(std::string_view sText);

/// A whole number in the user's digits grouping: "##,##0".
std::string FormatNumber(std::int64_t nNumber);

/// The moment `dtDate`, days since 30 December 1899, as the user's short date, one blank, the long time.
std::string FormatDateTime(double dtDate);

} // namespace platform

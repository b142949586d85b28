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

/// The current local time, in days since 30 December 1899.
double Now();

/// Writes the system's message for an error code, and a NUL, over the start of `sBuffer`, truncated to its
/// size. Writes nothing for a code without a message. The only flag is FORMAT_MESSAGE_FROM_SYSTEM; the
/// language is always the user's.
inline constexpr unsigned FORMAT_MESSAGE_FROM_SYSTEM = 4096;
void FormatMessageA(unsigned dwFlags, long dwMessageId, unsigned dwLanguageId, std::string& sBuffer);

} // namespace platform

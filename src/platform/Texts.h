// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Full Unicode case folding of a valid UTF-8 text without NULs: two texts that differ only in letter case
/// fold to the same text.
std::string FoldCase(std::string_view sText);

/// A whole number in the user's digits grouping: "##,##0".
std::string FormatNumber(std::int64_t nNumber);

/// The moment `dtDate`, days since 30 December 1899, as the user's short date, one blank, the long time.
std::string FormatDateTime(double dtDate);

/// The present moment in local time, as days since 30 December 1899.
double Now();

/// Writes the system's text for an error code, and a NUL, over the start of `sBuffer`, cut to the buffer's
/// size. Nothing is written for a code for which the system has no text. The only flag is
/// FORMAT_MESSAGE_FROM_SYSTEM; the language is the user's.
inline constexpr unsigned FORMAT_MESSAGE_FROM_SYSTEM = 4096;
void FormatMessageA(unsigned dwFlags, long dwMessageId, unsigned dwLanguageId, std::string& sBuffer);

} // namespace platform

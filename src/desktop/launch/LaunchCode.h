// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

inline constexpr long kStarted = 33; ///< the result of a successful start
inline constexpr long kNoSuchFile = 2;
inline constexpr long kNoTerminal = 0; ///< the program needs a terminal, and none is installed

/// Converts an error number of the system to a result of ShellExecuteA, 1 to 30. A number outside this range
/// is mapped to the one closest in meaning.
long LaunchCode(int nError);

/// 0 if the file at `sPath` (links are followed) exists, otherwise the reason why not, as a result of
/// ShellExecuteA. Only full paths are valid.
long WhyMissing(const std::string& sPath);

/// The message for such a result of ShellExecuteA: the system's text in the user's language, or our own for
/// kNoTerminal; empty if there is none.
std::string CodeInWords(long nCode);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

inline constexpr long kStarted = 33; ///< what a start that went well comes to
inline constexpr long kNoSuchFile = 2;
inline constexpr long kNoTerminal = 0; ///< the program runs in a terminal, and none is installed

/// An error number of the system as a result of ShellExecuteA: 1 to 30. A number that is none of these
/// becomes the one that comes nearest.
long LaunchCode(int nError);

/// 0 if the file that `sPath` leads to is there, else why not, as a result of ShellExecuteA. Only a full path
/// leads to a file.
long WhyMissing(const std::string& sPath);

/// Such a result of ShellExecuteA in words of the system's, in the user's language, or kNoTerminal in ours;
/// empty if there are none.
std::string CodeInWords(long nCode);

} // namespace desktop

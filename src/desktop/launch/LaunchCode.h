#pragma once

#include <string>

namespace desktop {

inline constexpr long kStarted = 33; ///< what a start that went well comes to
inline constexpr long kNoSuchFile = 2;

/// An error number of the system as a result of ShellExecuteA: 1 to 30. A number that is none of these
/// becomes the one that comes nearest.
long LaunchCode(int nError);

/// 0 if the file that `sPath` leads to is there, else why not, as a result of ShellExecuteA. Only a full path
/// leads to a file.
long WhyMissing(const std::string& sPath);

/// The system's words for such a result of ShellExecuteA, in the user's language; empty if it has none.
std::string CodeInWords(long nCode);

} // namespace desktop

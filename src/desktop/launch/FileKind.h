// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// The kind of a file as the desktop names it, "text/plain", from its name and its first bytes. The kind of
/// unknown bytes if the file cannot be read or is not there; an empty file whose name says nothing is a text.
/// Links are followed.
std::string FileKind(const std::string& sPath);

/// A kind in the user's words, "plain text document".
std::string KindInWords(const std::string& sKind);

/// The location of a file for other programs. Each byte of the path stands for itself or is escaped.
std::string FileUri(const std::string& sPath);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// The MIME type of a file, "text/plain", determined from its name and its first bytes. The type for unknown
/// data if the file is missing or cannot be read; an empty file whose name does not determine a type is a
/// text. Follows links.
std::string FileKind(const std::string& sPath);

/// The description of a MIME type in the user's language, "plain text document".
std::string KindInWords(const std::string& sKind);

/// The URI of a file, for other programs. Each byte of the path is kept or escaped.
std::string FileUri(const std::string& sPath);

} // namespace desktop

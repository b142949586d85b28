// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// The full path of the target of `sPath`, with all links resolved and no trailing separator (except for the
/// root); empty if it does not exist.
std::string CanonicalPath(const std::string& sPath);

/// The same for a folder; empty if there is no folder.
std::string CanonicalFolder(const std::string& sPath);

} // namespace desktop

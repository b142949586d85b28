// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// The full path of the target of `sPath`, with all links resolved and no trailing separator (except for the
/// root); empty if it does not exist.
std::string CanonicalPath(const std::string& sPath);

} // namespace desktop

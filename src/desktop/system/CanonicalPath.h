// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// The full path of what `sPath` leads to, with all links resolved and without a separator at its end but for
/// the root's; empty if that is nothing.
std::string CanonicalPath(const std::string& sPath);

} // namespace desktop

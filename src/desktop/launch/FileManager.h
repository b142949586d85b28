// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// Asks the running file manager to show the properties of a file. False, within a second, if none is running
/// or it does not answer.
bool ShowItemProperties(const std::string& sPath);

} // namespace desktop

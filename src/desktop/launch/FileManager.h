// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace desktop {

/// Has the file manager that runs in this session show what it knows of a file. False, within a second, if
/// none runs or it does not answer.
bool ShowItemProperties(const std::string& sPath);

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace desktop {

/// Decodes a name as the kernel and the device manager write it in tables and links, with bytes escaped as
/// "\040" or "\x20".
std::string Unescaped(std::string_view sText);

} // namespace desktop

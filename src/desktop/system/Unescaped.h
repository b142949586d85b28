// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace desktop {

/// A name as the kernel and the device manager write it into tables and links, with the bytes back that stand
/// there as "\040" or "\x20".
std::string Unescaped(std::string_view sText);

} // namespace desktop

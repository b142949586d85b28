// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A name in a form that can be shown on one line. Bytes that are not valid UTF-8 and invisible characters
/// that affect the surrounding text are written as their bytes, "\x0A"; so is a backslash that would read as
/// such an escape. The result can be mapped back to the bytes of the name.
std::string Escaped(std::string_view sName);

} // namespace platform

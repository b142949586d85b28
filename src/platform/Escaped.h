// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A name as it can be shown in one line: what is no valid UTF-8, or is a character that does not show but
/// acts on the text around it, stands as its bytes, "\x0A", and so does a backslash that would read as one of
/// these. So the name's bytes can be told from what is shown.
std::string Escaped(std::string_view sName);

} // namespace platform

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace desktop {

/// A text of the program as the screen shows it: it breaks where a carriage return and a line feed stand
/// together, and each line is shown as ShownText shows it.
QString ShownLines(std::string_view sText);

} // namespace desktop

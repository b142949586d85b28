// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace desktop {

/// A text of the program as displayed: lines end at CR LF, and each is converted by ShownText.
QString ShownLines(std::string_view sText);

} // namespace desktop

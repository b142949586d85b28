// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace desktop {

/// A text from the file system as displayed. Valid and visible UTF-8 is shown as it is; every other byte is
/// written as `\xNN`, and so is a backslash that would read as such an escape. So no name can fake a line
/// break, two different names never look the same, and the bytes can be recovered from the displayed text.
QString ShownText(std::string_view sText);

/// Converts a text that may contain any name to a tool tip, so that no part of it is interpreted as markup.
QString AsToolTip(const QString& sText);

} // namespace desktop

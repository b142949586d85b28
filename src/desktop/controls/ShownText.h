// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace desktop {

/// A text of the file system as the screen shows it. What is valid UTF-8 and can be seen stands as it is;
/// every other byte stands as `\xNN`, and so does a backslash that would read as one of these. So no name can
/// forge a line, two names never look the same for their bytes, and the bytes can be told from what is shown.
QString ShownText(std::string_view sText);

/// A text that may hold any name, as a tool tip, which would otherwise take some of it for markup.
QString AsToolTip(const QString& sText);

} // namespace desktop

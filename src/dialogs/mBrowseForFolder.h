// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <string>

namespace dialogs {

/// Asks for a folder, `sStart` selected at first if it is not empty. Returns it without a separator at its
/// end but for the root's; empty if the user cancelled.
std::string BrowseForFolder(platform::WindowHandle hOwner, const std::string& sTitle,
                            const std::string& sStart);

/// The text before the first NUL; without one, the text without the blanks around it.
std::string StripNull(const std::string& sText);

} // namespace dialogs

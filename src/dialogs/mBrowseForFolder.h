// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <string>

namespace dialogs {

/// Asks for a folder, initially `sStart` if that is not empty. Returns it without a trailing separator
/// (except for the root); empty if the user cancelled.
std::string BrowseForFolder(platform::WindowHandle hOwner, const std::string& sTitle,
                            const std::string& sStart);

/// The text up to the first NUL; without a NUL, the text with leading and trailing blanks removed.
std::string StripNull(const std::string& sText);

} // namespace dialogs

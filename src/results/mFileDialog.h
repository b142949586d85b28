// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <string>

namespace results {

/// Asks for a file to save to. `sFilter` stands in pairs of a description and a pattern, "|" between all
/// parts; `sFileName`, of at most 260 bytes, is proposed. Returns the chosen path and sets `sInitDir`, the
/// folder to start in, to its folder; empty, with `sInitDir` as it was, if the user cancelled.
std::string ShowSaveDialog(platform::WindowHandle hOwner, const std::string& sFilter,
                           const std::string& sFileName, std::string& sInitDir, const std::string& sTitle);

/// A filter as the dialog reads it: a NUL behind each part.
std::string FilterToNulls(std::string sFilter);

/// The extension that a filter stands for: the three characters behind its first dot, or its first three.
std::string FilterExtension(const std::string& sFilter);

/// The text before the first NUL; without one, the text without the blanks around it.
std::string CutAtNull(const std::string& sText);

/// A proposed name with "_" in the place of each character that would bring in a folder or a drive, or that
/// other systems refuse.
std::string SafeFileName(std::string sName);

} // namespace results

// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <string>

namespace results {

/// Asks for a file to save to. `sFilter` consists of pairs of a description and a pattern, all separated by
/// "|". `sFileName` is the proposed name, at most 260 bytes. Starts in folder `sInitDir`, and sets `sInitDir`
/// to the folder of the chosen file. Returns the chosen path; empty, with `sInitDir` unchanged, if the user
/// cancelled.
std::string ShowSaveDialog(platform::WindowHandle hOwner, const std::string& sFilter,
                           const std::string& sFileName, std::string& sInitDir, const std::string& sTitle);

/// Converts a filter to the form used by the dialog: a NUL after each part.
std::string FilterToNulls(std::string sFilter);

/// The default extension of a filter: the three characters after its first dot, or its first three without a
/// dot.
std::string FilterExtension(const std::string& sFilter);

/// The text up to the first NUL; without a NUL, the text with leading and trailing blanks removed.
std::string CutAtNull(const std::string& sText);

/// A proposed name in which "_" replaces each character that would introduce a folder or a drive, or that
/// other systems reject.
std::string SafeFileName(std::string sName);

} // namespace results

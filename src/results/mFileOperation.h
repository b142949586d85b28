// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <string>

// Operations carried out by the shell, in one call per command: deleting, moving and copying files, and
// starting programs.

namespace results {

/// Process all files of `sFrom`, full paths each followed by a NUL, in a single request. The destinations in
/// `sTo` have the same form and order; deleted files go to the trash. Returns true if the shell carried out
/// the request or the user ended it. Callers have to check on disk which files are gone.
bool DeleteFiles(const std::string& sFrom);
bool MoveFiles(const std::string& sFrom, const std::string& sTo);
bool CopyFiles(const std::string& sFrom, const std::string& sTo);

/// Opens a file with the program associated with its kind, or lets the user choose one if there is none.
/// Shows a message on failure. `sFile` may be in double quotes; `nShow` is platform::SW_SHOWNORMAL.
void OpenDocument(const std::string& sFile, const std::string& sParams, const std::string& sFolder,
                  int nShow);

/// Starts a program. Shows a message on failure.
void RunProgram(const std::string& sProgram, const std::string& sParams, const std::string& sFolder,
                int nShow);

/// Opens a folder in the file manager.
void ExploreFolder(platform::WindowHandle hOwner, const std::string& sPath);

/// Lets the user choose a program for a file.
void OpenWithDialog(const std::string& sFile);

/// Shows the properties of a file.
void ShowProperties(platform::WindowHandle hOwner, const std::string& sFile);

} // namespace results

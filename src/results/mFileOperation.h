// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <string>

// What the shell does for us, one call a command: it deletes, moves and copies files, and it starts programs.

namespace results {

/// Each sends all files of `sFrom`, full paths with a NUL behind each, in one request: to the trash, or to
/// the paths that stand at the same places in `sTo`. True if the shell has carried the request out, or the
/// user has ended it. Which files have gone is to be seen on the disk.
bool DeleteFiles(const std::string& sFrom);
bool MoveFiles(const std::string& sFrom, const std::string& sTo);
bool CopyFiles(const std::string& sFrom, const std::string& sTo);

/// Opens a file with the program of its kind, or lets the user choose one if none is known. Says so if that
/// fails. `sFile` can stand in double quotes; `nShow` is platform::SW_SHOWNORMAL.
void OpenDocument(const std::string& sFile, const std::string& sParams, const std::string& sFolder,
                  int nShow);

/// Starts a program. Says so if that fails.
void RunProgram(const std::string& sProgram, const std::string& sParams, const std::string& sFolder,
                int nShow);

/// Opens a folder in the file manager.
void ExploreFolder(platform::WindowHandle hOwner, const std::string& sPath);

/// Lets the user choose a program for a file.
void OpenWithDialog(const std::string& sFile);

/// Shows what is known of a file.
void ShowProperties(platform::WindowHandle hOwner, const std::string& sFile);

} // namespace results

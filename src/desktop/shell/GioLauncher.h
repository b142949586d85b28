// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "Launching.h"

#include <string>

namespace desktop {

/// Starts the applications that the desktop knows, and shows what it knows of files. What the program does
/// not tell the user itself (nothing to show or explore at a path, no application for folders) this says in a
/// box of its own, as a shell does.
///
/// "Wordpad.exe" is the application for rich text, else the first one there is for OpenDocument text, Office
/// Open XML documents, and the older ones; on a machine without any, the one for plain text, so that the
/// person at least sees what is in the file.
class GioLauncher final : public platform::Launcher
{
public:
    /// Programs start in the folders that their own descriptions name: `sDirectory` and `nShowCmd` mean
    /// nothing here.
    long ShellExecuteA(platform::WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                       const std::string& sParameters, const std::string& sDirectory, int nShowCmd) override;
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& info) override;
};

} // namespace desktop

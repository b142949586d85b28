// SPDX-License-Identifier: MIT
#pragma once

#include "Launching.h"
#include "NativeWindow.h"

#include <string>

namespace desktop {

/// Starts the desktop's applications and shows file properties. Failures that the program itself does not
/// report (nothing to show or explore at a path, no application for folders) are reported here in a message
/// box, as a shell does.
///
/// "Wordpad.exe" is the application for rich text, otherwise the first available one for OpenDocument text,
/// Office Open XML documents or the older formats; on a machine without any, it is the one for plain text, so
/// that the user at least sees the contents.
class GioLauncher final : public platform::Launcher
{
public:
    /// Programs start in the working directory that their own desktop entries specify: `sDirectory` and
    /// `nShowCmd` are ignored.
    long ShellExecuteA(platform::WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                       const std::string& sParameters, const std::string& sDirectory, int nShowCmd) override;
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& info) override;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "LaunchCode.h"
#include "Launching.h"
#include "NativeWindow.h"

#include <string>
#include <vector>

namespace tour {

/// Starts no programs on the machine, and records what would have been opened. The shell's own windows are
/// shown.
class Launches final : public platform::Launcher
{
public:
    /// Passes requests that show a window of the shell on to `shell`, which must outlive this object.
    void StandBefore(platform::Launcher& shell) { m_pShell = &shell; }

    std::vector<std::string> opened;

    long ShellExecuteA(platform::WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                       const std::string& sParameters, const std::string& sDirectory, int nShowCmd) override
    {
        if (sFile == "rundll32.exe") {
            return m_pShell->ShellExecuteA(hwnd, sVerb, sFile, sParameters, sDirectory, nShowCmd);
        }
        opened.push_back(sFile);
        return desktop::kStarted;
    }
    bool ShellExecuteExA(const platform::SHELLEXECUTEINFO& info) override
    {
        return m_pShell->ShellExecuteExA(info);
    }

private:
    platform::Launcher* m_pShell = nullptr;
};

} // namespace tour

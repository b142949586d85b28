// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <string>

namespace platform {

inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr long SE_ERR_NOASSOC = 31;            ///< no program is associated with this kind of file
inline constexpr unsigned SEE_MASK_INVOKEIDLIST = 12; ///< the verb is from the file's own context menu

/// Input of ShellExecuteExA.
struct SHELLEXECUTEINFO {
    unsigned fMask = 0;
    WindowHandle hwnd = nullptr; ///< the owner of the windows that the shell opens
    std::string lpVerb;
    std::string lpFile; ///< a full path, optionally in double quotes
};

/// Starts programs on files. A started program is independent of this one and survives it.
class Launcher
{
public:
    virtual ~Launcher() = default;

    /// Opens `sFile`, which is one of:
    /// - a full path, exact bytes, with or without double quotes: opened in the program associated with its
    ///   kind;
    /// - "Notepad.exe" (the default program for plain text), "Wordpad.exe" (for word-processor documents) or
    ///   "explorer.exe" (for folders): opens the path in `sParameters`;
    /// - "rundll32.exe" with "shell32.dll, OpenAs_RunDLL " and a path in `sParameters`: lets the user choose
    ///   a program for that file.
    ///
    /// Returns as soon as the program has been started: a value above 32, or an error code of the system or
    /// SE_ERR_NOASSOC.
    virtual long ShellExecuteA(WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                               const std::string& sParameters, const std::string& sDirectory,
                               int nShowCmd) = 0;

    /// With the verb "properties": shows the properties of a file. False if they cannot be shown.
    virtual bool ShellExecuteExA(const SHELLEXECUTEINFO& info) = 0;
};

} // namespace platform

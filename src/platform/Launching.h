// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <string>

namespace platform {

inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr long SE_ERR_NOASSOC = 31;            ///< no program is known for files of this kind
inline constexpr unsigned SEE_MASK_INVOKEIDLIST = 12; ///< the verb is one of the file's menu of its own

/// What is to be done with a file, in the form of the call that returns no code of its own.
struct SHELLEXECUTEINFO {
    unsigned fMask = 0;
    WindowHandle hwnd = nullptr; ///< the window that the shell's own windows belong to
    std::string lpVerb;
    std::string lpFile; ///< a full path, which may stand in double quotes
};

/// Starts programs on files. What was started lives on its own, also after this program has ended.
class Launcher
{
public:
    virtual ~Launcher() = default;

    /// Opens `sFile`. That is a full path, exact bytes, in double quotes or without, which opens in the
    /// program that its kind is associated with; or one of the programs "Notepad.exe" (the one for plain
    /// text), "Wordpad.exe" (the one for word-processor documents), "explorer.exe" (the one for folders),
    /// which then opens the path that `sParameters` holds; or "rundll32.exe" with "shell32.dll, OpenAs_RunDLL
    /// " and a path in `sParameters`, which lets the user choose a program for that file. Returns as soon as
    /// the program has been started: a value above 32, or else an error code of the system, SE_ERR_NOASSOC
    /// among them.
    virtual long ShellExecuteA(WindowHandle hwnd, const std::string& sVerb, const std::string& sFile,
                               const std::string& sParameters, const std::string& sDirectory,
                               int nShowCmd) = 0;

    /// With the verb "properties": shows what is known of a file. False if that cannot be shown.
    virtual bool ShellExecuteExA(const SHELLEXECUTEINFO& info) = 0;
};

} // namespace platform

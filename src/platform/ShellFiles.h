// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "NativeWindow.h"

#include <cstddef>
#include <functional>
#include <string>

namespace platform {

inline constexpr unsigned FO_MOVE = 1;
inline constexpr unsigned FO_COPY = 2;
inline constexpr unsigned FO_DELETE = 3;

inline constexpr unsigned FOF_MULTIDESTFILES = 1;   ///< `pTo` names one destination for each entry of `pFrom`
inline constexpr unsigned FOF_ALLOWUNDO = 64;       ///< deleted files must be restorable
inline constexpr unsigned FOF_SIMPLEPROGRESS = 256; ///< progress without file names is sufficient
inline constexpr unsigned SHGFI_DISPLAYNAME = 512;

/// A request for all files of a command.
struct SHFILEOPSTRUCT {
    WindowHandle hwnd = nullptr; ///< the owner of the questions and the progress window
    unsigned wFunc = 0;          ///< one of the FO_ constants
    std::string pFrom;           ///< full paths, exact bytes, each followed by a NUL; empty for no files
    std::string pTo;             ///< their destinations in the same form and order; empty for FO_DELETE
    unsigned fFlags = 0;
};

/// File operations of the shell.
class ShellFiles
{
public:
    virtual ~ShellFiles() = default;

    /// Sets where the information about groups comes from that the user is shown before files are deleted.
    /// Not owned; must outlive its use.
    virtual void UseGroups(FileGroups& groups) = 0;

    /// Carries out a request and returns when it is done. Asks before files are deleted or replaced, shows
    /// progress with a way to cancel, and reports at the end which files were not processed and why. Deletes
    /// only to a trash from which files can be restored. Returns 0 if the request was carried out, refused or
    /// ended by the user, another value if it could not be carried out or was cancelled before it began. A
    /// request without files returns 0 and shows nothing.
    virtual int SHFileOperationA(const SHFILEOPSTRUCT& request) = 0;

    /// Calls `look`, which only looks at files and must own all it uses, with each number below `nCount` in
    /// another thread, while the windows stay responsive. If it takes long, shows a window, owned by `hwnd`,
    /// with a way to cancel. Returns false if the user has cancelled or memory has run out; one call may then
    /// still be waiting for a file system.
    virtual bool LookAtEach(WindowHandle hwnd, std::size_t nCount, std::function<void(std::size_t)> look) = 0;

    /// Not 0 if `sPath` exists and the shell has the information that `uFlags` asks for.
    virtual long SHGetFileInfoA(const std::string& sPath, unsigned dwFileAttributes, unsigned uFlags) = 0;
};

} // namespace platform

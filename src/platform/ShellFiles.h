// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "FileGroups.h"

#include <string>

namespace platform {

inline constexpr unsigned FO_MOVE = 1;
inline constexpr unsigned FO_COPY = 2;
inline constexpr unsigned FO_DELETE = 3;

inline constexpr unsigned FOF_MULTIDESTFILES = 1;   ///< `pTo` names one destination for each entry of `pFrom`
inline constexpr unsigned FOF_ALLOWUNDO = 64;       ///< what is deleted can be restored
inline constexpr unsigned FOF_SIMPLEPROGRESS = 256; ///< progress without the names of files would do
inline constexpr unsigned SHGFI_DISPLAYNAME = 512;

/// One request for all files of a command.
struct SHFILEOPSTRUCT {
    WindowHandle hwnd = nullptr; ///< the window over which the shell asks and shows its progress
    unsigned wFunc = 0;          ///< one of FO_
    std::string pFrom;           ///< full paths, exact bytes, each followed by a NUL; empty for no files
    std::string pTo;             ///< their destinations in the same form and order; empty for FO_DELETE
    unsigned fFlags = 0;
};

/// What the shell does to files, and knows of them.
class ShellFiles
{
public:
    virtual ~ShellFiles() = default;

    /// From now on the user is told, before files are deleted, what `groups` says of them. It is not owned
    /// and must outlive its use.
    virtual void UseGroups(FileGroups& groups) = 0;

    /// Carries a request out and returns when it is done. Asks the user before it deletes or replaces, shows
    /// its progress with a way to cancel, and says at the end what it has not done and why. Deletes only to a
    /// place from which it can be restored. 0 if the request was carried out or ended by the user; another
    /// value if it could not be carried out at all. 0, and nothing shown, for a request without files.
    virtual int SHFileOperationA(const SHFILEOPSTRUCT& request) = 0;

    /// Not 0 if there is something at `sPath` of which the shell knows what `uFlags` ask for.
    virtual long SHGetFileInfoA(const std::string& sPath, unsigned dwFileAttributes, unsigned uFlags) = 0;
};

} // namespace platform

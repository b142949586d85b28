// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "ShellDialogs.h"

#include <string>

namespace platform {

inline constexpr unsigned OFN_OVERWRITEPROMPT = 0x2;
inline constexpr unsigned OFN_HIDEREADONLY = 0x4;
inline constexpr unsigned OFN_NOCHANGEDIR = 0x8;
inline constexpr unsigned OFN_EXPLORER = 0x80000;
inline constexpr unsigned OFN_LONGNAMES = 0x200000;

/// Input and result of the file dialog.
struct OPENFILENAME {
    WindowHandle hwndOwner = nullptr;
    std::string lpstrFilter;     ///< pairs of a description and a pattern, each followed by a NUL
    unsigned nFilterIndex = 0;   ///< the initially selected pair, counted from 1
    std::string lpstrFile;       ///< the proposed name and a NUL; on return the chosen path and a NUL
    std::string lpstrInitialDir; ///< the initial folder; empty to let the dialog choose
    std::string lpstrTitle;
    unsigned Flags = 0;
    std::string lpstrDefExt; ///< appended with a dot to a name typed without an extension. An extension is a
                             ///< last dot, not at the start of the name, followed by letters and digits with
                             ///< at least one letter
};

/// The modal dialogs that ask for a folder or a file.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    /// Shows the folder dialog over its owner, with OK, Cancel and a way to create a folder. The callback, if
    /// any, gets BFFM_INITIALIZED once when the dialog is up. Returns the chosen folder, valid until
    /// CoTaskMemFree, or 0 on Cancel.
    virtual ItemId SHBrowseForFolderA(const BROWSEINFO& info) = 0;

    /// Writes the path of an item returned by SHBrowseForFolderA, and a NUL, over the start of `sBuffer`,
    /// which grows if needed. Only the path of the root ends in a separator. Returns false and writes nothing
    /// for item 0.
    virtual bool SHGetPathFromIDListA(ItemId pidl, std::string& sBuffer) = 0;

    /// Releases an item returned by SHBrowseForFolderA. 0 is allowed.
    virtual void CoTaskMemFree(ItemId pidl) = 0;

    /// Asks for a file to write to, with a confirmation if the file exists. Returns true if the user
    /// confirmed one; `lpstrFile`, which grows if needed, then starts with its full path, exact bytes, and a
    /// NUL. Does not change the current folder of the process.
    virtual bool GetSaveFileNameA(OPENFILENAME& request) = 0;
};

} // namespace platform

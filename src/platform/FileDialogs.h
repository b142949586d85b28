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

/// What the file dialog is to be.
struct OPENFILENAME {
    WindowHandle hwndOwner = nullptr;
    std::string lpstrFilter;     ///< pairs of a description and a pattern, a NUL behind each of them
    unsigned nFilterIndex = 0;   ///< the pair to start with, counted from 1
    std::string lpstrFile;       ///< the proposed name, a NUL behind it; then the chosen path likewise
    std::string lpstrInitialDir; ///< the folder to start in; empty for the dialog's own choice
    std::string lpstrTitle;
    unsigned Flags = 0;
    std::string lpstrDefExt; ///< appended, behind a dot, to a name typed without an extension: a last dot,
                             ///< not at the start, with letters and digits behind it, one of them a letter
};

/// The modal questions for a folder and for a file.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    /// Shows the folder dialog over its owner, with OK, Cancel and a way to make a folder in it. The
    /// callback, if there is one, gets BFFM_INITIALIZED once, when the dialog is up. Returns the folder
    /// chosen, good until CoTaskMemFree, or 0 on Cancel.
    virtual ItemId SHBrowseForFolderA(const BROWSEINFO& info) = 0;

    /// Writes the path of an item that SHBrowseForFolderA returned, and a NUL, over the start of `sBuffer`,
    /// which grows if need be; only the root's path ends in a separator. False, with nothing written, for 0.
    virtual bool SHGetPathFromIDListA(ItemId pidl, std::string& sBuffer) = 0;

    /// Lets go of an item that SHBrowseForFolderA returned. 0 is harmless.
    virtual void CoTaskMemFree(ItemId pidl) = 0;

    /// Asks for a file to write to, once more if there is one of that name already. True if the user
    /// confirmed one; then `lpstrFile`, which grows if need be, starts with its full path, exact bytes, and a
    /// NUL. The process keeps its current folder.
    virtual bool GetSaveFileNameA(OPENFILENAME& request) = 0;
};

} // namespace platform

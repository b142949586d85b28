// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <string>
#include <string_view>

namespace platform {

/// An item of the folder tree; 0 for none. Valid while the dialog with the tree is open.
using ItemId = long;

/// Notifications of the folder dialog to its callback: it has been set up; and another item, whose ItemId is
/// in `lParam`, has been selected.
inline constexpr unsigned BFFM_INITIALIZED = 1;
inline constexpr unsigned BFFM_SELCHANGED = 2;

/// A message with a text to the folder dialog: selects the folder with that path, if `wParam` is 1.
inline constexpr unsigned BFFM_SETSELECTIONA = 0x466;

inline constexpr unsigned BIF_RETURNONLYFSDIRS = 1;
inline constexpr unsigned BIF_STATUSTEXT = 4;

using BrowseCallback = int (*)(WindowHandle hWnd, unsigned uMsg, long lParam, long lpData);

/// Input of the folder dialog.
struct BROWSEINFO {
    WindowHandle hwndOwner = nullptr;
    std::string lpszTitle;
    unsigned ulFlags = 0;
    BrowseCallback lpfn = nullptr;
    long lParam = 0; ///< passed to the callback as `lpData`
};

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

/// The dialogs of the shell that ask for a folder or a file.
class ShellDialogs
{
public:
    /// The class of the tree window inside the folder dialog.
    static constexpr std::string_view kTreeClass = "SysTreeView32";

    virtual ~ShellDialogs() = default;

    /// Runs the folder dialog in an event loop of its own until it is closed. Its tree can be moved into
    /// another window meanwhile and keeps sending notifications from there; it must be moved back before that
    /// window is destroyed. Returns the chosen item, or 0.
    virtual ItemId SHBrowseForFolder(const BROWSEINFO& info) = 0;

    /// Writes the path of an item and a NUL over the start of `sBuffer`, which grows if needed; only the NUL
    /// for an item that is not a folder in the file system. Returns false and writes nothing for an invalid
    /// item.
    virtual bool SHGetPathFromIDList(ItemId pidl, std::string& sBuffer) = 0;

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

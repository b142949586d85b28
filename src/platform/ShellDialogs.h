// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

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

/// The folder dialog of the shell whose tree the program shows in a window of its own.
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
};

} // namespace platform

// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <string>
#include <string_view>

namespace platform {

/// An item of the shell's folder tree; 0 for none. Good while the dialog that shows the tree runs.
using ItemId = long;

/// What the folder dialog tells its callback: once that it has been set up, and with the item's ItemId in
/// `lParam` that another one has been selected.
inline constexpr unsigned BFFM_INITIALIZED = 1;
inline constexpr unsigned BFFM_SELCHANGED = 2;

/// A message with a text for the folder dialog: selects the folder of that path, if `wParam` is 1.
inline constexpr unsigned BFFM_SETSELECTIONA = 0x466;

inline constexpr unsigned BIF_RETURNONLYFSDIRS = 1;
inline constexpr unsigned BIF_STATUSTEXT = 4;

using BrowseCallback = int (*)(WindowHandle hWnd, unsigned uMsg, long lParam, long lpData);

/// What the folder dialog is to be.
struct BROWSEINFO {
    WindowHandle hwndOwner = nullptr;
    std::string lpszTitle;
    unsigned ulFlags = 0;
    BrowseCallback lpfn = nullptr;
    long lParam = 0; ///< given to the callback as `lpData`
};

/// What the query for a volume's label came to.
struct tVolumeLabel {
    std::string sLabel; ///< empty if the volume has none
    std::string sError; ///< what went wrong, without a full stop; empty if nothing did
};

/// What the shell shows and knows of folders.
class ShellDialogs
{
public:
    /// The class of the window, inside the folder dialog, that shows the tree.
    static constexpr std::string_view kTreeClass = "SysTreeView32";

    virtual ~ShellDialogs() = default;

    /// Runs the folder dialog with an event loop of its own until it is closed. Its tree can be moved into
    /// another window meanwhile and goes on reporting from there; it has to be back before that window goes.
    /// Returns the item chosen, or 0.
    virtual ItemId SHBrowseForFolder(const BROWSEINFO& info) = 0;

    /// Writes the path of an item and a NUL over the start of `sBuffer`, which grows if need be; only the NUL
    /// for an item that is no folder of the file system. False, with nothing written, for what is no item.
    virtual bool SHGetPathFromIDList(ItemId pidl, std::string& sBuffer) = 0;

    /// The label of the volume that holds folder `sFolder`.
    virtual tVolumeLabel VolumeLabel(const std::string& sFolder) = 0;
};

} // namespace platform

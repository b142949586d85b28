// SPDX-License-Identifier: MIT
#pragma once

#include "Widgets.h"

#include <string>

// The shell's folder tree in a picture box of ours. The shell's dialog offers one answer and closes; we want
// a window that stays open. So its dialog is opened off the screen, its tree moved into the picture box, and
// the dialog hidden and left running: its callback goes on reporting the selection.

namespace dialogs {

/// The folder selected in the tree at this moment, or last. Empty at program start.
extern std::string sSelectedFolder;

/// The picture box that takes the tree; set before ShowSysTree.
extern platform::PictureBox* oHost;

/// Opens the dialog with folder `sStart` selected, or the one that the shell starts with. Returns when the
/// dialog has ended; until then the program's windows go on working inside the call.
void ShowSysTree(const std::string& sStart);

/// Gives the tree back and ends the dialog.
void CloseSysTree();

} // namespace dialogs

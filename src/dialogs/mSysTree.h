// SPDX-License-Identifier: MIT
#pragma once

#include "Widgets.h"

#include <string>

// Shows the shell's folder tree in a picture box of the program. The shell's dialog returns one answer and
// closes, whereas the program needs a window that stays open. So the dialog is opened off the screen, its
// tree is moved into the picture box, and the dialog is hidden and keeps running: its callback continues to
// report the selection.

namespace dialogs {

/// The folder currently or last selected in the tree. Initially empty.
extern std::string sSelectedFolder;

/// The picture box that receives the tree; must be set before ShowSysTree.
extern platform::PictureBox* oHost;

/// Opens the dialog with folder `sStart` selected, or with the shell's initial folder if it is empty. Returns
/// when the dialog has ended; the windows of the program stay usable during the call.
void ShowSysTree(const std::string& sStart);

/// Returns the tree to the dialog and ends the dialog.
void CloseSysTree();

} // namespace dialogs

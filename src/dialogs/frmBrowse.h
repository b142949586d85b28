// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "Widgets.h"

namespace dialogs {

/// The Add Folder window: the shell's folder tree (mSysTree) in a picture box, and a button that adds the
/// folder selected there to the list, as often as it is pressed.
class frmBrowse
{
public:
    frmBrowse();

    platform::Form form;
    platform::PictureBox picBrowse; ///< hosts the tree
    platform::CommandButton cmdAdd; ///< enabled by the tree's selection
    platform::CommandButton cmdClose;
    platform::Label Label1;

private:
    void RestoreDesign();
    void Form_Load();
    void Form_Unload();
    void cmdAdd_Click();
    void cmdClose_Click();
};

/// The one Add Folder window.
frmBrowse& theBrowseForm();

} // namespace dialogs

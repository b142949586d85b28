// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "Widgets.h"

namespace dialogs {

/// The Add Folder window: the shell's folder tree (mSysTree) in a picture box, and a button that adds the
/// selected folder to the list. It stays open, so that several folders can be added.
class frmBrowse
{
public:
    frmBrowse();

    platform::Form form;
    platform::PictureBox picBrowse; ///< contains the tree
    platform::CommandButton cmdAdd; ///< enabled according to the tree's selection
    platform::CommandButton cmdClose;
    platform::Label Label1;

private:
    void RestoreDesign();
    void Form_Load();
    void Form_Unload();
    void cmdAdd_Click();
    void cmdClose_Click() { form.UnloadForm(); }
};

/// The only Add Folder window.
frmBrowse& theBrowseForm();

} // namespace dialogs

// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "Form.h"
#include "ListView.h"
#include "Menu.h"
#include "StatusBar.h"
#include "Widgets.h"

#include <string>

namespace search {

/// What the layers below the main form use of it.
class MainFormMembers
{
public:
    virtual ~MainFormMembers() = default;

    platform::Form form; ///< `Enabled`: the user may act on the form
    platform::ListView lvFolders{form};
    platform::ListView lvFiles{form};
    platform::ListView lvFake{form}; ///< covers lvFiles while a search fills it
    platform::ComparedBy RowsComparedBy = platform::ComparedBy::Content; ///< of the search in lvFiles
    platform::StatusBar StatusBar1{2};
    platform::MenuItem mnuOptionsSearchContent;
    platform::MenuItem mnuOptionsSearchNameSize;
    platform::MenuItem mnuOptionsHidden;

    /// Updates the enabled state of the commands to match the rows of `lvFiles`.
    virtual void CheckMenu() = 0;

    /// The folder last selected in the folder picker; empty if there was none.
    virtual std::string sSelectedFolder() = 0;
};

/// The bar of the progress window: a range that starts at 0, and a position in it.
class ProgressBarMembers
{
public:
    virtual ~ProgressBarMembers() = default;
    virtual void SetMax(float New_Max) = 0;
    virtual void SetValue(float New_Value) = 0;
};

/// What the searches use of the progress window.
class ProgressFormMembers
{
public:
    virtual ~ProgressFormMembers() = default;

    platform::Label lblStatus;
    platform::Label lblFolder;
    platform::Label lblFile;
    virtual ProgressBarMembers& pbProgress() = 0;

    /// Shows the window in front of the main form, with its captions and bar as designed.
    virtual void Show() = 0;

    /// Repaints the captions at once.
    virtual void Refresh() = 0;

    /// Closes the window.
    virtual void Unload() = 0;
};

/// Installs the forms for the whole program. They are not owned here.
void UseForms(MainFormMembers& main, ProgressFormMembers& progress);

/// The installed forms.
MainFormMembers& frmMain();
ProgressFormMembers& frmProgress();

} // namespace search

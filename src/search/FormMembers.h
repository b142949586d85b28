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

/// What the long operations use of the main form, whoever offers it.
class MainFormMembers
{
public:
    virtual ~MainFormMembers() = default;

    platform::Form form; ///< `Enabled`: the user may act on the form
    platform::ListView lvFolders{form};
    platform::ListView lvFiles{form};
    platform::ComparedBy RowsComparedBy = platform::ComparedBy::Content; ///< in the search that wrote lvFiles
    platform::StatusBar StatusBar1{2};
    platform::MenuItem mnuOptionsSearchContent;
    platform::MenuItem mnuOptionsSearchNameSize;
    platform::MenuItem mnuOptionsHidden;

    /// Brings the enabled state of the commands in line with the rows of `lvFiles`.
    virtual void CheckMenu() = 0;

    /// The folder last selected in the folder picker, empty if there was none.
    virtual std::string sSelectedFolder() = 0;
};

/// The bar of the progress window: a range from 0 and a position in it.
class ProgressBarMembers
{
public:
    virtual ~ProgressBarMembers() = default;
    virtual void SetMax(float New_Max) = 0;
    virtual void SetValue(float New_Value) = 0;
};

/// What the searches use of the progress window, whoever offers it.
class ProgressFormMembers
{
public:
    virtual ~ProgressFormMembers() = default;

    platform::Label lblStatus;
    platform::Label lblFolder;
    platform::Label lblFile;
    virtual ProgressBarMembers& pbProgress() = 0;

    /// Brings the window up in front of the main form, its captions and its bar as designed.
    virtual void Show() = 0;

    /// Brings the captions to the screen at once.
    virtual void Refresh() = 0;

    /// Takes the window down.
    virtual void Unload() = 0;
};

/// Puts the forms in place for the whole program; they are not owned here.
void UseForms(MainFormMembers& main, ProgressFormMembers& progress);

MainFormMembers& frmMain();
ProgressFormMembers& frmProgress();

} // namespace search

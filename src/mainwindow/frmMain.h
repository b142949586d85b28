// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "MainForm.h"
#include "Menu.h"
#include "Toolbar.h"
#include "Widgets.h"

#include <span>
#include <string>

namespace mainwindow {

/// The program's window: the folders to compare above, the result rows below, and every command in its menus.
class frmMain final : public dialogs::MainFormMembers, public platform::FileGroups
{
public:
    frmMain();

    platform::Toolbar Toolbar1;  ///< a second way to nine of the commands
    platform::PictureBox picSep; ///< the bar between the two lists

    platform::MenuItem mnuFile; ///< also the pop-up menu of lvFiles
    platform::MenuItem mnuFileOpen, mnuFileExplore, mnuFileOpenWith, sepFile, mnuSelect, sepFile4;
    platform::MenuItem mnuFileMoveTo, mnuFileCopyTo, sepFile5, mnuFileDelete, mnuFileProperties, sepFile6;
    platform::MenuItem mnuFileExit;
    platform::MenuItem mnuFileNotepad, mnuFileWordpad, sepFile1, mnuFileChooseProgram;
    platform::MenuItem mnuSelectDuplicatedFiles, mnuSelectEmptyFiles, sepFile2, mnuSelectDrive, mnuSelectPath;
    platform::MenuItem sepFile3, mnuSelectAll, mnuSelectInvert, mnuSelectNone;
    platform::MenuItem mnuSearch;
    platform::MenuItem mnuSearchNew, sepSearch, mnuSearchAdd, mnuSearchRemove, mnuSearchClearFolders;
    platform::MenuItem sepSearch1, mnuSearchFind, sepSearch2, mnuSearchSaveResults, mnuSearchClearResults;
    platform::MenuItem mnuOptions;
    platform::MenuItem mnuOptionsSearchName, sepOptions;
    platform::MenuItem mnuHelp;
    platform::MenuItem mnuHelpAbout;

    /// True if the last mouse press in lvFiles was on a row.
    bool bItemHit = false;

    /// The commands that need a row are enabled if lvFiles has one. The toolbar's buttons always are.
    void CheckMenu() override;

    std::string sSelectedFolder() override;

    /// What the rows of lvFiles say of these files.
    platform::tFileGroups GroupsOf(std::span<const std::string> paths) override;

private:
    /// Says in the first panel whether there are folders to search.
    void CheckStatus();

    /// Turns the marks of selected rows whose files have gone from blue to red.
    void MarkMissingFiles();

    /// The file and the folder of the current row of lvFiles; empty without one.
    std::string CurrentKey();
    std::string CurrentFolder();

    /// Asks for a folder, under `sTitle`, and has the files of the selected rows moved or copied there.
    void SendSelectedToFolder(const std::string& sTitle,
                              bool (*operation)(const std::string& sFrom, const std::string& sTo));

    void DesignControls();
    void DesignColumns();
    void DesignStatusBar();
    void DesignMenu();
    void DesignToolbar();

    void Form_Load();
    void Form_Resize();
    void picSep_MouseDown(int Button);
    void picSep_MouseMove(int Button, float Y);
    void picSep_MouseUp(int Button);

    void lvFiles_MouseDown(float x, float y);
    void lvFiles_MouseUp(int Button);
    void lvFiles_MenuKey();
    void lvFiles_DblClick();
    void lvFiles_KeyUp(int KeyCode, int Shift);
    void lvFolders_KeyUp(int KeyCode, int Shift);
    void lvFolders_ColumnClick();

    using Command = void (frmMain::*)();
    struct tToolbarRow;
    static std::span<const tToolbarRow> ToolbarRows();
    void Toolbar1_ButtonClick(const std::string& sKey);

    void mnuFileOpen_Click();
    void mnuFileExplore_Click();
    void mnuFileNotepad_Click();
    void mnuFileWordpad_Click();
    void mnuFileChooseProgram_Click();
    void mnuSelectDuplicatedFiles_Click();
    void mnuSelectEmptyFiles_Click();
    void mnuSelectDrive_Click();
    void mnuSelectPath_Click();
    void mnuSelectAll_Click();
    void mnuSelectInvert_Click();
    void mnuSelectNone_Click();
    void mnuFileMoveTo_Click();
    void mnuFileCopyTo_Click();
    void mnuFileDelete_Click();
    void mnuFileProperties_Click();
    void mnuFileExit_Click();
    void mnuSearchNew_Click();
    void mnuSearchAdd_Click();
    void mnuSearchRemove_Click();
    void mnuSearchClearFolders_Click();
    void mnuSearchFind_Click();
    void mnuSearchSaveResults_Click();
    void mnuSearchClearResults_Click();
    void mnuOptionsSearchContent_Click();
    void mnuOptionsSearchName_Click();
    void mnuOptionsSearchNameSize_Click();
    void mnuOptionsHidden_Click();
    void mnuHelpAbout_Click();
};

/// The one main form, made when it is first asked for.
frmMain& theMainForm();

} // namespace mainwindow

// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "FormMembers.h"
#include "Menu.h"
#include "SaveResults.h"
#include "Toolbar.h"
#include "Widgets.h"
#include "frmAbout.h"
#include "mDataOperation.h"
#include "mFileOperation.h"
#include "mSelect.h"

#include <span>
#include <string>

namespace mainwindow {

/// The main window: the folders to compare, the result rows below them, and all commands in its menus.
class frmMain final : public search::MainFormMembers, public platform::FileGroups
{
public:
    frmMain();

    platform::Toolbar Toolbar1;  ///< gives access to nine of the commands
    platform::PictureBox picSep; ///< the splitter between the two lists

    platform::MenuItem mnuFile; ///< also the context menu of lvFiles
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

    /// Enables the commands that need a row if lvFiles has one. The toolbar buttons are always enabled.
    void CheckMenu() override;

    std::string sSelectedFolder() override;

    /// The groups of these files according to the rows of lvFiles.
    platform::tFileGroups GroupsOf(std::span<const std::string> paths) override;

private:
    /// Shows in the first panel whether there are folders to search.
    void CheckStatus();

    /// Changes the marks of selected rows whose files have gone from blue to red.
    void MarkMissingFiles();

    /// The full path of the current row of lvFiles; empty without one.
    std::string CurrentKey();

    /// One of DeleteFiles, MoveFiles and CopyFiles.
    using Operation = bool (*)(const std::string& sFrom, const std::string& sTo);

    /// Asks for a folder, with `sTitle`, and moves or copies the files of the selected rows there.
    void SendSelectedToFolder(const std::string& sTitle, Operation operation);

    /// Processes the existing files of the selected rows, with `sFolder` in front of their destinations.
    void ActOnSelected(const std::string& sFolder, Operation operation);

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

    void lvFiles_MouseDown(float x, float y) { bItemHit = lvFiles.HitTest(x, y).has_value(); }
    void lvFiles_MouseUp(int Button);
    void lvFiles_MenuKey();
    void lvFiles_DblClick() { mnuFileOpen_Click(); }
    void lvFiles_KeyUp(int KeyCode, int Shift);
    void lvFolders_KeyUp(int KeyCode, int Shift);
    void lvFolders_ColumnClick();

    using Command = void (frmMain::*)();
    struct tToolbarRow;
    static std::span<const tToolbarRow> ToolbarRows();
    void Toolbar1_ButtonClick(const std::string& sKey);

    // Those that are one call of a lower layer stand here, the others in the source of their topic.
    void mnuFileOpen_Click();
    void mnuFileExplore_Click();
    void mnuFileNotepad_Click();
    void mnuFileWordpad_Click();
    void mnuFileChooseProgram_Click() { results::OpenWithDialog(CurrentKey()); }
    void mnuSelectDuplicatedFiles_Click() { results::SelectDuplicatedFiles(lvFiles); }
    void mnuSelectEmptyFiles_Click() { results::SelectEmptyFiles(lvFiles); }
    void mnuSelectDrive_Click() { results::SelectSameDrive(lvFiles); }
    void mnuSelectPath_Click() { results::SelectSamePath(lvFiles); }
    void mnuSelectAll_Click() { results::SelectAll(lvFiles); }
    void mnuSelectInvert_Click() { results::SelectInvert(lvFiles); }
    void mnuSelectNone_Click() { results::SelectNone(lvFiles); }
    void mnuFileMoveTo_Click();
    void mnuFileCopyTo_Click();
    void mnuFileDelete_Click();
    void mnuFileProperties_Click();
    void mnuFileExit_Click() { form.UnloadForm(); }
    void mnuSearchNew_Click();
    void mnuSearchAdd_Click();
    void mnuSearchRemove_Click();
    void mnuSearchClearFolders_Click();
    void mnuSearchFind_Click() { search::mnuSearchFind_Click(); }
    void mnuSearchSaveResults_Click() { results::SaveResults(); }
    void mnuSearchClearResults_Click();
    void mnuOptionsSearchContent_Click();
    void mnuOptionsSearchName_Click();
    void mnuOptionsSearchNameSize_Click();
    void mnuOptionsHidden_Click() { mnuOptionsHidden.SetChecked(!mnuOptionsHidden.Checked()); }
    void mnuHelpAbout_Click() { dialogs::theAboutForm().form.Show(true); }
};

} // namespace mainwindow

// SPDX-License-Identifier: MIT
#include "frmMain.h"

// The menus and the toolbar: their contents, and which command each item starts.

namespace mainwindow {
namespace {

using platform::MenuItem;

/// The search modes. A click toggles the item and sets both others to the opposite of its new state, so
/// clicking the active mode checks both others.
void ChooseMode(MenuItem& clicked, MenuItem& second, MenuItem& third)
{
    clicked.SetChecked(!clicked.Checked());
    second.SetChecked(!clicked.Checked());
    third.SetChecked(!clicked.Checked());
}

} // namespace

void frmMain::DesignMenu()
{
    static constexpr struct {
        std::size_t nDepth; ///< 0 for the menu bar
        MenuItem frmMain::* pItem;
        const char* pCaption;
        Command pHandler = nullptr;
        const char* pShortcut = "";
    } kRows[] = {
        {0, &frmMain::mnuFile, "&File"},
        {1, &frmMain::mnuFileOpen, "Open", &frmMain::mnuFileOpen_Click},
        {1, &frmMain::mnuFileExplore, "Explore", &frmMain::mnuFileExplore_Click},
        {1, &frmMain::mnuFileOpenWith, "Open with"},
        {2, &frmMain::mnuFileNotepad, "Notepad", &frmMain::mnuFileNotepad_Click},
        {2, &frmMain::mnuFileWordpad, "Wordpad", &frmMain::mnuFileWordpad_Click},
        {2, &frmMain::sepFile1, "-"},
        {2, &frmMain::mnuFileChooseProgram, "Choose Program ..", &frmMain::mnuFileChooseProgram_Click},
        {1, &frmMain::sepFile, "-"},
        {1, &frmMain::mnuSelect, "Select"},
        {2, &frmMain::mnuSelectDuplicatedFiles, "Duplicated Files", &frmMain::mnuSelectDuplicatedFiles_Click},
        {2, &frmMain::mnuSelectEmptyFiles, "Empty Files", &frmMain::mnuSelectEmptyFiles_Click},
        {2, &frmMain::sepFile2, "-"},
        {2, &frmMain::mnuSelectDrive, "Same Drive", &frmMain::mnuSelectDrive_Click},
        {2, &frmMain::mnuSelectPath, "Same Path", &frmMain::mnuSelectPath_Click},
        {2, &frmMain::sepFile3, "-"},
        {2, &frmMain::mnuSelectAll, "All", &frmMain::mnuSelectAll_Click},
        {2, &frmMain::mnuSelectInvert, "Invert", &frmMain::mnuSelectInvert_Click},
        {2, &frmMain::mnuSelectNone, "None", &frmMain::mnuSelectNone_Click},
        {1, &frmMain::sepFile4, "-"},
        {1, &frmMain::mnuFileMoveTo, "Move To Folder ..", &frmMain::mnuFileMoveTo_Click},
        {1, &frmMain::mnuFileCopyTo, "Copy To Folder ..", &frmMain::mnuFileCopyTo_Click},
        {1, &frmMain::sepFile5, "-"},
        {1, &frmMain::mnuFileDelete, "Delete", &frmMain::mnuFileDelete_Click},
        {1, &frmMain::mnuFileProperties, "Properties", &frmMain::mnuFileProperties_Click},
        {1, &frmMain::sepFile6, "-"},
        {1, &frmMain::mnuFileExit, "Exit", &frmMain::mnuFileExit_Click},
        {0, &frmMain::mnuSearch, "&Search"},
        {1, &frmMain::mnuSearchNew, "New Search ..", &frmMain::mnuSearchNew_Click, "F2"},
        {1, &frmMain::sepSearch, "-"},
        {1, &frmMain::mnuSearchAdd, "Add Folder ..", &frmMain::mnuSearchAdd_Click},
        {1, &frmMain::mnuSearchRemove, "Remove Folders", &frmMain::mnuSearchRemove_Click},
        {1, &frmMain::mnuSearchClearFolders, "Clear Folders", &frmMain::mnuSearchClearFolders_Click},
        {1, &frmMain::sepSearch1, "-"},
        {1, &frmMain::mnuSearchFind, "Search Now", &frmMain::mnuSearchFind_Click, "F3"},
        {1, &frmMain::sepSearch2, "-"},
        {1, &frmMain::mnuSearchSaveResults, "Save Results ..", &frmMain::mnuSearchSaveResults_Click, "F4"},
        {1, &frmMain::mnuSearchClearResults, "Clear Results", &frmMain::mnuSearchClearResults_Click},
        {0, &frmMain::mnuOptions, "Options"},
        {1, &frmMain::mnuOptionsSearchContent, "Search by Content", &frmMain::mnuOptionsSearchContent_Click},
        {1, &frmMain::mnuOptionsSearchName, "Search by Name", &frmMain::mnuOptionsSearchName_Click},
        {1, &frmMain::mnuOptionsSearchNameSize, "Search by Name and Size",
         &frmMain::mnuOptionsSearchNameSize_Click},
        {1, &frmMain::sepOptions, "-"},
        {1, &frmMain::mnuOptionsHidden, "Search Hidden Files/Folders", &frmMain::mnuOptionsHidden_Click},
        {0, &frmMain::mnuHelp, "&Help"},
        {1, &frmMain::mnuHelpAbout, "About", &frmMain::mnuHelpAbout_Click},
    };
    std::vector<std::vector<MenuItem*>*> levels = {&form.menus};
    for (const auto& row : kRows) {
        MenuItem& item = this->*row.pItem;
        item.sCaption = row.pCaption;
        item.sShortcut = row.pShortcut;
        if (row.pHandler != nullptr) {
            item.Click = [this, pHandler = row.pHandler] { (this->*pHandler)(); };
        }
        levels.resize(row.nDepth + 1);
        levels.back()->push_back(&item);
        levels.push_back(&item.items);
    }
    mnuOptionsSearchContent.SetChecked(true);
}

void frmMain::mnuOptionsSearchContent_Click()
{
    ChooseMode(mnuOptionsSearchContent, mnuOptionsSearchName, mnuOptionsSearchNameSize);
}

void frmMain::mnuOptionsSearchName_Click()
{
    ChooseMode(mnuOptionsSearchName, mnuOptionsSearchContent, mnuOptionsSearchNameSize);
}

void frmMain::mnuOptionsSearchNameSize_Click()
{
    ChooseMode(mnuOptionsSearchNameSize, mnuOptionsSearchContent, mnuOptionsSearchName);
}

/// A button and its command, or a separator.
struct frmMain::tToolbarRow {
    platform::tToolbarButton button;
    Command pCommand = nullptr;
};

std::span<const frmMain::tToolbarRow> frmMain::ToolbarRows()
{
    static const tToolbarRow kRows[] = {
        {{"new", "New", "New", "new"}, &frmMain::mnuSearchNew_Click},
        {{"add", "Add", "Add", "add"}, &frmMain::mnuSearchAdd_Click},
        {{"remove", "Remove", "Remove", "remove"}, &frmMain::mnuSearchRemove_Click},
        {},
        {{"search", "Search", "Search", "search"}, &frmMain::mnuSearchFind_Click},
        {{"save", "Save", "Save Results", "save"}, &frmMain::mnuSearchSaveResults_Click},
        {},
        {{"delete", "Delete", "Delete", "delete"}, &frmMain::mnuFileDelete_Click},
        {{"moveto", "Move To", "Move To", "moveto"}, &frmMain::mnuFileMoveTo_Click},
        {{"copyto", "Copy To", "Copy To", "copyto"}, &frmMain::mnuFileCopyTo_Click},
        {{"properties", "Properties", "Properties", "properties"}, &frmMain::mnuFileProperties_Click},
    };
    return kRows;
}

void frmMain::DesignToolbar()
{
    for (const auto& row : ToolbarRows()) {
        Toolbar1.buttons.push_back(row.button);
    }
}

void frmMain::Toolbar1_ButtonClick(const std::string& sKey)
{
    // Runs the command even if its menu item is disabled.
    for (const auto& row : ToolbarRows()) {
        if (row.pCommand != nullptr && row.button.sKey == sKey) {
            (this->*row.pCommand)();
            return;
        }
    }
}

} // namespace mainwindow

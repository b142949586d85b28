// SPDX-License-Identifier: MIT
#include "frmMain.h"

#include "mListView.h"
#include "mSysTree.h"
#include "mToolbar.h"

namespace mainwindow {

frmMain::frmMain()
{
    form.design = {.sCaption = "Tallyfen",
                   .ClientWidth = 8085,
                   .ClientHeight = 5490,
                   .bSizable = true,
                   .bShowInTaskbar = true,
                   .bCenterOnScreen = true};
    form.Load = [this] { Form_Load(); };
    form.Resize = [this] { Form_Resize(); };
    DesignControls();
    DesignColumns();
    DesignStatusBar();
    DesignMenu();
    DesignToolbar();

    lvFiles.MouseDown = [this](int, int, float x, float y) { lvFiles_MouseDown(x, y); };
    lvFiles.MouseUp = [this](int Button, int, float, float) { lvFiles_MouseUp(Button); };
    lvFiles.MenuKey = [this] { lvFiles_MenuKey(); };
    lvFiles.DblClick = [this] { lvFiles_DblClick(); };
    lvFiles.KeyUp = [this](int KeyCode, int Shift) { lvFiles_KeyUp(KeyCode, Shift); };
    lvFolders.KeyUp = [this](int KeyCode, int Shift) { lvFolders_KeyUp(KeyCode, Shift); };
    lvFolders.ColumnClick = [this] { lvFolders_ColumnClick(); };
    picSep.MouseDown = [this](int Button, int, float, float) { picSep_MouseDown(Button); };
    picSep.MouseMove = [this](int Button, int, float, float Y) { picSep_MouseMove(Button, Y); };
    picSep.MouseUp = [this](int Button, int, float, float) { picSep_MouseUp(Button); };
    Toolbar1.ButtonClick = [this](const std::string& sKey) { Toolbar1_ButtonClick(sKey); };
}

void frmMain::Form_Load()
{
    FlatToolbar(Toolbar1);
    results::SetFullRowSelect(lvFiles, true);
    CheckMenu();
}

void frmMain::CheckMenu()
{
    const bool bRows = lvFiles.ListItems.Count() > 0;
    for (platform::MenuItem* pItem : {&mnuFileOpen, &mnuFileExplore, &mnuFileOpenWith, &mnuSelect,
                                      &mnuFileMoveTo, &mnuFileCopyTo, &mnuFileDelete, &mnuFileProperties}) {
        pItem->SetEnabled(bRows);
    }
}

void frmMain::CheckStatus()
{
    StatusBar1.Panels(1).SetText(lvFolders.ListItems.Count() > 0 ? "Ready" : "Add at least one folder");
}

std::string frmMain::sSelectedFolder()
{
    return dialogs::sSelectedFolder;
}

} // namespace mainwindow

#include "frmAbout.h"
#include "frmMain.h"
#include "mDataOperation.h"

namespace mainwindow {

void frmMain::mnuSearchFind_Click()
{
    search::mnuSearchFind_Click();
}

void frmMain::mnuFileExit_Click()
{
    form.UnloadForm();
}

void frmMain::mnuHelpAbout_Click()
{
    dialogs::theAboutForm().form.Show(true);
}

// The commands from here on are still to come. Their items and buttons are in place and do nothing yet.

void frmMain::mnuFileOpen_Click() {}
void frmMain::mnuFileExplore_Click() {}
void frmMain::mnuFileNotepad_Click() {}
void frmMain::mnuFileWordpad_Click() {}
void frmMain::mnuFileChooseProgram_Click() {}
void frmMain::mnuSelectDuplicatedFiles_Click() {}
void frmMain::mnuSelectEmptyFiles_Click() {}
void frmMain::mnuSelectDrive_Click() {}
void frmMain::mnuSelectPath_Click() {}
void frmMain::mnuSelectAll_Click() {}
void frmMain::mnuSelectInvert_Click() {}
void frmMain::mnuSelectNone_Click() {}
void frmMain::mnuFileMoveTo_Click() {}
void frmMain::mnuFileCopyTo_Click() {}
void frmMain::mnuFileDelete_Click() {}
void frmMain::mnuFileProperties_Click() {}
void frmMain::mnuSearchSaveResults_Click() {}

} // namespace mainwindow

// SPDX-License-Identifier: MIT
#include "SaveResults.h"
#include "frmAbout.h"
#include "frmMain.h"
#include "mDataOperation.h"
#include "mSelect.h"

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

void frmMain::mnuSelectDuplicatedFiles_Click()
{
    results::SelectDuplicatedFiles(lvFiles);
}

void frmMain::mnuSelectEmptyFiles_Click()
{
    results::SelectEmptyFiles(lvFiles);
}

void frmMain::mnuSelectDrive_Click()
{
    results::SelectSameDrive(lvFiles);
}

void frmMain::mnuSelectPath_Click()
{
    results::SelectSamePath(lvFiles);
}

void frmMain::mnuSelectAll_Click()
{
    results::SelectAll(lvFiles);
}

void frmMain::mnuSelectInvert_Click()
{
    results::SelectInvert(lvFiles);
}

void frmMain::mnuSelectNone_Click()
{
    results::SelectNone(lvFiles);
}

void frmMain::mnuSearchSaveResults_Click()
{
    results::SaveResults();
}

} // namespace mainwindow

// SPDX-License-Identifier: MIT
#include "Launching.h"
#include "frmMain.h"
#include "mFileOperation.h"
#include "mListView.h"

// The commands that open or show one file, that of the current row, however many rows are selected. Most act
// only if the last mouse press in the list was on a row. The programs they start run independently.

namespace mainwindow {
namespace {

std::string Quoted(const std::string& sText)
{
    return '"' + sText + '"';
}

} // namespace

std::string frmMain::CurrentKey()
{
    const auto current = lvFiles.SelectedItem();
    return current ? current->Key() : std::string();
}

void frmMain::mnuFileOpen_Click()
{
    if (bItemHit) {
        results::OpenDocument(Quoted(CurrentKey()), "", "", platform::SW_SHOWNORMAL);
    }
}

void frmMain::mnuFileExplore_Click()
{
    if (bItemHit) {
        results::ExploreFolder(nullptr, results::CurrentFolder(lvFiles));
    }
}

void frmMain::mnuFileNotepad_Click()
{
    if (bItemHit) {
        results::RunProgram("Notepad.exe", Quoted(CurrentKey()), "", platform::SW_SHOWNORMAL);
    }
}

void frmMain::mnuFileWordpad_Click()
{
    if (bItemHit) {
        results::RunProgram("Wordpad.exe", Quoted(CurrentKey()), "", platform::SW_SHOWNORMAL);
    }
}

void frmMain::mnuFileProperties_Click()
{
    if (bItemHit) {
        results::ShowProperties(form.hWnd(), Quoted(CurrentKey()));
    }
}

} // namespace mainwindow

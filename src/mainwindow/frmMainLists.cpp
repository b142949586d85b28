// SPDX-License-Identifier: MIT
#include "System.h"
#include "Widgets.h"
#include "WindowFunctions.h"
#include "frmBrowse.h"
#include "frmMain.h"
#include "mCommon.h"
#include "mListView.h"
#include "mSysTree.h"

#include <utility>

// Mouse and keyboard handlers of the two lists, and the commands that change the folder list. Keys act on
// release.

namespace mainwindow {
namespace {

constexpr int kKeyCtrl = 17;
constexpr int kKeyDelete = 46;
constexpr int kKeyA = 65;

/// True for Ctrl+A without Shift or Alt.
bool SelectsAll(int KeyCode, int Shift)
{
    return (KeyCode == kKeyCtrl || KeyCode == kKeyA) && Shift == platform::kCtrlHeld;
}

} // namespace

void frmMain::lvFiles_MouseUp(int Button)
{
    if (Button == platform::kRightButton) {
        platform::System().windows->PopupMenu(mnuFile, nullptr);
    }
}

void frmMain::lvFiles_MenuKey()
{
    // The menu opens at the current row, so its commands apply to that row. No mouse press has hit it, so the
    // flag is restored when the menu closes.
    const bool bHitBefore = std::exchange(bItemHit, lvFiles.SelectedItem().has_value());
    platform::System().windows->PopupMenu(mnuFile, &lvFiles);
    bItemHit = bHitBefore;
}

void frmMain::lvFiles_KeyUp(int KeyCode, int Shift)
{
    if (lvFiles.ListItems.Count() == 0) {
        return;
    }
    if (KeyCode == kKeyDelete) {
        mnuFileDelete_Click();
    } else if (SelectsAll(KeyCode, Shift)) {
        results::SelectAllItems(lvFiles);
    }
}

void frmMain::lvFolders_KeyUp(int KeyCode, int Shift)
{
    if (lvFolders.ListItems.Count() == 0) {
        return;
    }
    if (KeyCode == kKeyDelete) {
        results::RemoveSelectedItems(lvFolders);
    } else if (SelectsAll(KeyCode, Shift)) {
        results::SelectAllItems(lvFolders);
    }
}

void frmMain::lvFolders_ColumnClick()
{
    lvFolders.SetSorted(false);
    lvFolders.SetSortOrder(lvFolders.SortOrder() == 0 ? 1 : 0);
    lvFolders.SetSorted(true);
}

void frmMain::mnuSearchAdd_Click()
{
    // Show the window at once, since loading the tree takes a while.
    auto& browse = dialogs::theBrowseForm();
    browse.form.Show(false, &form);
    browse.form.Refresh();
    // Returns when the user has closed the window.
    dialogs::oHost = &browse.picBrowse;
    dialogs::ShowSysTree("");
    CheckStatus();
}

void frmMain::mnuSearchNew_Click()
{
    platform::LockWindowUpdate(form.hWnd());
    if (lvFolders.ListItems.Count() > 0) {
        lvFolders.ListItems.Clear();
    }
    search::ClearResults();
    CheckStatus();
    platform::LockWindowUpdate(nullptr);
    mnuSearchAdd_Click();
}

void frmMain::mnuSearchRemove_Click()
{
    // Without a current row the rest still has to be done.
    if (auto current = lvFolders.SelectedItem()) {
        current->SetSelected(true);
    }
    results::RemoveSelectedItems(lvFolders);
    CheckStatus();
}

void frmMain::mnuSearchClearFolders_Click()
{
    lvFolders.ListItems.Clear();
    CheckStatus();
}

void frmMain::mnuSearchClearResults_Click()
{
    // Not ClearResults: the result count of the last search and the commands stay as they are.
    lvFiles.ListItems.Clear();
    CheckStatus();
}

} // namespace mainwindow

// SPDX-License-Identifier: MIT
#include "System.h"
#include "Widgets.h"
#include "frmBrowse.h"
#include "frmMain.h"
#include "mCommon.h"
#include "mListView.h"
#include "mSysTree.h"

#include <utility>

// What mouse and keyboard do on the two lists, and the commands that change the list of folders. Keys act
// when they are released.

namespace mainwindow {
namespace {

constexpr int kKeyCtrl = 17;
constexpr int kKeyDelete = 46;
constexpr int kKeyA = 65;

/// Ctrl and A have been pressed together, with neither Shift nor Alt.
bool SelectsAll(int KeyCode, int Shift)
{
    return (KeyCode == kKeyCtrl || KeyCode == kKeyA) && Shift == platform::kCtrlHeld;
}

} // namespace

void frmMain::lvFiles_MouseDown(float x, float y)
{
    bItemHit = lvFiles.HitTest(x, y).has_value();
}

void frmMain::lvFiles_MouseUp(int Button)
{
    if (Button == platform::kRightButton) {
        platform::Windows().PopupMenu(mnuFile, nullptr);
    }
}

void frmMain::lvFiles_MenuKey()
{
    // The menu comes up at the current row, which its commands are therefore for. No mouse has pressed that
    // row, so it ends with the menu.
    const bool bHitBefore = std::exchange(bItemHit, lvFiles.SelectedItem().has_value());
    platform::Windows().PopupMenu(mnuFile, &lvFiles);
    bItemHit = bHitBefore;
}

void frmMain::lvFiles_DblClick()
{
    mnuFileOpen_Click();
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
    // The window first, before the wait for its tree.
    auto& browse = dialogs::theBrowseForm();
    browse.form.Show(false, &form);
    browse.form.Refresh();
    // All that the user does in the window happens within this call.
    dialogs::oHost = &browse.picBrowse;
    dialogs::ShowSysTree("");
    // The folders added meanwhile show in the status word.
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
    // Without a current row there is none to select, and the other steps follow all the same.
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
    // Less than ClearResults: the count of the last search and the commands stay as they are.
    lvFiles.ListItems.Clear();
    CheckStatus();
}

} // namespace mainwindow

// SPDX-License-Identifier: MIT
#include "WindowManager.h"
#include "cGroupRows.h"
#include "frmMain.h"
#include "mBrowseForFolder.h"
#include "mCommon.h"
#include "mFileGroups.h"
#include "mFileInfo.h"
#include "mFileOperation.h"
#include "mFindALLFiles.h"

// The commands that change the files of the selected rows. The shell does it, in one request a command; then
// the disk is looked at again, and the marks of the files that have gone turn red.

namespace mainwindow {
namespace {

/// The files of the selected rows that are there, in row order, and where they would go in folder `sFolder`:
/// a NUL behind each path.
struct tFileLists {
    tFileLists(platform::ListItems& rows, const std::string& sFolder)
    {
        const std::size_t nCount = rows.Count();
        for (std::size_t n = 1; n <= nCount; ++n) {
            const platform::ListItem row = rows(n);
            if (!row.Selected()) {
                continue;
            }
            const std::string sKey = row.Key();
            if (results::FileExists(sKey)) {
                sFrom.append(sKey).push_back('\0');
                sTo.append(sFolder).append(row.Text()).push_back('\0');
            }
        }
    }

    std::string sFrom;
    std::string sTo;
};

} // namespace

platform::tFileGroups frmMain::GroupsOf(std::span<const std::string> paths)
{
    return results::GroupsOf(lvFiles, RowsComparedBy, paths);
}

void frmMain::mnuFileDelete_Click()
{
    // Without rows there is nothing to delete.
    if (lvFiles.ListItems.Count() == 0) {
        return;
    }
    // Busy, before the disk is asked which files are there.
    search::SetWorking(true);
    const tFileLists lists(lvFiles.ListItems, "");
    // Also without any file: the shell then has nothing to ask.
    if (results::DeleteFiles(lists.sFrom)) {
        MarkMissingFiles();
    }
    // The shell's windows may have left another one in front.
    search::SetWorking(false);
    platform::SetForegroundWindow(form.hWnd());
}

void frmMain::mnuFileMoveTo_Click()
{
    SendSelectedToFolder("Select the folder that you want to move selected files to.", &results::MoveFiles);
}

void frmMain::mnuFileCopyTo_Click()
{
    SendSelectedToFolder("Select the folder that you want to copy selected files to.", &results::CopyFiles);
}

void frmMain::SendSelectedToFolder(const std::string& sTitle,
                                   bool (*operation)(const std::string& sFrom, const std::string& sTo))
{
    // Without rows there is nothing to send.
    if (lvFiles.ListItems.Count() == 0) {
        return;
    }
    // The folder, from that of the current row on.
    const std::string sFolder = dialogs::BrowseForFolder(form.hWnd(), sTitle, CurrentFolder());
    if (sFolder.empty()) {
        return;
    }
    // Busy, before the disk is asked which files are there.
    search::SetWorking(true);
    const tFileLists lists(lvFiles.ListItems, results::JoinPath(sFolder, ""));
    // After a copy too: a file can have gone meanwhile.
    if (operation(lists.sFrom, lists.sTo)) {
        MarkMissingFiles();
    }
    // The shell's windows may have left another one in front.
    search::SetWorking(false);
    platform::SetForegroundWindow(form.hWnd());
}

void frmMain::MarkMissingFiles()
{
    // Without rows there is nothing to mark.
    const std::size_t nCount = lvFiles.ListItems.Count();
    if (nCount == 0) {
        return;
    }
    // Only a selected row's file has been acted upon, and red never turns back.
    platform::LockWindowUpdate(lvFiles.hWnd());
    for (std::size_t n = 1; n <= nCount; ++n) {
        platform::ListItem row = lvFiles.ListItems(n);
        if (row.SmallIcon() <= search::kMarkLast && row.Selected() && !search::FileFound(row.Key())) {
            row.SetSmallIcon(row.SmallIcon() + search::kMarksGone);
        }
    }
    platform::LockWindowUpdate(nullptr);
}

} // namespace mainwindow

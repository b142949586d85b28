// SPDX-License-Identifier: MIT
#include "GroupMarks.h"
#include "WindowFunctions.h"
#include "frmMain.h"
#include "mBrowseForFolder.h"
#include "mCommon.h"
#include "mFileGroups.h"
#include "mFileInfo.h"
#include "mFileOperation.h"
#include "mFindALLFiles.h"
#include "mListView.h"

// The commands that change the files of the selected rows. The shell does the work, in one request per
// command; then the program checks the disk and turns the marks of the files that have gone red.

namespace mainwindow {
namespace {

/// The existing files of the selected rows, in row order, and their destinations in folder `sFolder`; a NUL
/// follows each path.
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
    if (lvFiles.ListItems.Count() == 0) {
        return;
    }
    // Checking which files exist can take a while, so switch to working mode first.
    search::SetWorking(true);
    const tFileLists lists(lvFiles.ListItems, "");
    // Also called without any files; the shell then shows nothing.
    if (results::DeleteFiles(lists.sFrom)) {
        MarkMissingFiles();
    }
    // Another window may be in front after the shell's dialogs.
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
    if (lvFiles.ListItems.Count() == 0) {
        return;
    }
    const std::string sFolder =
        dialogs::BrowseForFolder(form.hWnd(), sTitle, results::CurrentFolder(lvFiles));
    if (sFolder.empty()) {
        return;
    }
    // Checking which files exist can take a while, so switch to working mode first.
    search::SetWorking(true);
    const tFileLists lists(lvFiles.ListItems, results::JoinPath(sFolder, ""));
    // Also after a copy, since a file may have gone meanwhile.
    if (operation(lists.sFrom, lists.sTo)) {
        MarkMissingFiles();
    }
    // Another window may be in front after the shell's dialogs.
    search::SetWorking(false);
    platform::SetForegroundWindow(form.hWnd());
}

void frmMain::MarkMissingFiles()
{
    const std::size_t nCount = lvFiles.ListItems.Count();
    if (nCount == 0) {
        return;
    }
    // Only the files of selected rows can have changed, and a red mark never turns blue again.
    platform::LockWindowUpdate(lvFiles.hWnd());
    for (std::size_t n = 1; n <= nCount; ++n) {
        platform::ListItem row = lvFiles.ListItems(n);
        if (row.SmallIcon() <= platform::kMarkLast && row.Selected() && !search::FileFound(row.Key())) {
            row.SetSmallIcon(row.SmallIcon() + platform::kMarksGone);
        }
    }
    platform::LockWindowUpdate(nullptr);
}

} // namespace mainwindow

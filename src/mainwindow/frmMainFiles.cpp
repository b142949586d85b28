// SPDX-License-Identifier: MIT
#include "GroupMarks.h"
#include "System.h"
#include "WindowFunctions.h"
#include "frmMain.h"
#include "mBrowseForFolder.h"
#include "mCommon.h"
#include "mFileGroups.h"
#include "mFileInfo.h"
#include "mFileOperation.h"
#include "mFindALLFiles.h"
#include "mListView.h"

#include <memory>
#include <new>
#include <optional>
#include <vector>

// The commands that change the files of the selected rows. The shell does the work, in one request per
// command; then the program checks the disk and turns the marks of the files that have gone red.

namespace mainwindow {
namespace {

/// The selected rows whose file exists, according to `exists`, or does not, in row order. Empty if the user
/// has not waited until the disks have answered.
std::optional<std::vector<platform::ListItem>> SelectedRows(platform::WindowHandle hwnd,
                                                            platform::ListItems& rows,
                                                            bool (*exists)(const std::string& sPath),
                                                            bool bExist)
{
    struct tLook {
        std::vector<std::string> keys;
        std::vector<char> found;
    };
    const auto pLook = std::make_shared<tLook>(); // shared with a look that nobody waits for any more
    std::vector<platform::ListItem> selected;
    const std::size_t nCount = rows.Count();
    for (std::size_t n = 1; n <= nCount; ++n) {
        if (rows(n).Selected()) {
            selected.push_back(rows(n));
            pLook->keys.push_back(rows(n).Key());
        }
    }
    pLook->found.resize(selected.size());
    const auto look = [pLook, exists](std::size_t n) { pLook->found[n] = exists(pLook->keys[n]) ? 1 : 0; };
    if (!platform::System().shellFiles->LookAtEach(hwnd, selected.size(), look)) {
        return std::nullopt;
    }
    std::vector<platform::ListItem> those;
    for (std::size_t n = 0; n < selected.size(); ++n) {
        if ((pLook->found[n] != 0) == bExist) {
            those.push_back(selected[n]);
        }
    }
    return those;
}

/// The files of rows, and their destinations in folder `sFolder`; a NUL follows each path.
struct tFileLists {
    tFileLists(const std::vector<platform::ListItem>& rows, const std::string& sFolder)
    {
        for (const platform::ListItem& row : rows) {
            sFrom.append(row.Key()).push_back('\0');
            sTo.append(sFolder).append(row.Text()).push_back('\0');
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
    if (lvFiles.ListItems.Count() > 0) {
        ActOnSelected(
            "", [](const std::string& sFrom, const std::string&) { return results::DeleteFiles(sFrom); });
    }
}

void frmMain::mnuFileMoveTo_Click()
{
    SendSelectedToFolder("Select the folder that you want to move selected files to.", &results::MoveFiles);
}

void frmMain::mnuFileCopyTo_Click()
{
    SendSelectedToFolder("Select the folder that you want to copy selected files to.", &results::CopyFiles);
}

void frmMain::SendSelectedToFolder(const std::string& sTitle, Operation operation)
{
    if (lvFiles.ListItems.Count() == 0) {
        return;
    }
    const std::string sFolder =
        dialogs::BrowseForFolder(form.hWnd(), sTitle, results::CurrentFolder(lvFiles));
    if (!sFolder.empty()) {
        ActOnSelected(results::JoinPath(sFolder, ""), operation);
    }
}

void frmMain::ActOnSelected(const std::string& sFolder, Operation operation)
{
    // Checking which files exist can take a while, so switch to working mode first.
    search::SetWorking(true);
    try {
        const auto rows = SelectedRows(form.hWnd(), lvFiles.ListItems, &results::FileExists, true);
        const tFileLists lists(rows.value_or(std::vector<platform::ListItem>()), sFolder);
        // Also without any files; the shell then shows nothing. And also after a copy, since a file may have
        // gone meanwhile.
        if (rows && operation(lists.sFrom, lists.sTo)) {
            MarkMissingFiles();
        }
    } catch (const std::bad_alloc&) {
        platform::System().messages->Show("There is not enough memory for all of these files.",
                                          platform::MessageIcon::Exclamation);
    }
    // Another window may be in front after the shell's dialogs.
    search::SetWorking(false);
    platform::SetForegroundWindow(form.hWnd());
}

void frmMain::MarkMissingFiles()
{
    // Only the files of selected rows can have changed, and a red mark never turns blue again.
    auto missing = SelectedRows(form.hWnd(), lvFiles.ListItems, &search::FileFound, false);
    if (!missing) {
        return;
    }
    platform::LockWindowUpdate(lvFiles.hWnd());
    for (platform::ListItem& row : *missing) {
        if (!platform::IsGoneMark(row.SmallIcon())) {
            row.SetSmallIcon(row.SmallIcon() + platform::kMarksGone);
        }
    }
    platform::LockWindowUpdate(nullptr);
}

} // namespace mainwindow

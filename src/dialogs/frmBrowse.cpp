// SPDX-License-Identifier: MIT
#include "frmBrowse.h"

#include "FormDesign.h"
#include "FormMembers.h"
#include "GroupMarks.h"
#include "System.h"
#include "WindowFunctions.h"
#include "mSysTree.h"

#include <memory>
#include <string>

namespace dialogs {
namespace {

/// Adds the folder to the list with the label of its volume. Returns an error message without a full stop;
/// empty on success, and if the user has not waited for its disk to answer.
std::string AddFolder(platform::WindowHandle hwnd, const std::string& sSelected)
{
    struct tFolder {
        std::string sPath;
        platform::tVolumeLabel volume;
    };
    const auto pFolder = std::make_shared<tFolder>(sSelected);
    const auto look = [pFolder](std::size_t) {
        // By its canonical path, so that a link to a folder, for example to the home folder, does not list it
        // twice.
        pFolder->sPath = platform::System().files->CanonicalFolder(pFolder->sPath).value_or(pFolder->sPath);
        pFolder->volume = platform::System().volumes->VolumeLabel(pFolder->sPath);
    };
    if (!platform::System().shellFiles->LookAtEach(hwnd, 1, look)) {
        return {};
    }
    const auto& [sFolder, volume] = *pFolder;
    auto row = search::frmMain().lvFolders.ListItems.Add(sFolder, sFolder, platform::kFolderIcon);
    if (!row) {
        return "This folder is already in the list";
    }
    if (volume.sError.empty()) {
        row->SetSubItems(1, volume.sLabel);
    }
    return volume.sError;
}

} // namespace

frmBrowse::frmBrowse()
{
    form.design = {.sCaption = "Browse for Folder", .ClientWidth = 4755, .ClientHeight = 4575};
    form.controls = {&picBrowse, &cmdAdd, &cmdClose, &Label1};
    form.DefaultButton = &cmdAdd;
    form.CancelButton = &cmdClose;
    form.Load = [this] {
        RestoreDesign();
        Form_Load();
    };
    form.Unload = [this] { Form_Unload(); };
    cmdAdd.Click = [this] { cmdAdd_Click(); };
    cmdClose.Click = [this] { cmdClose_Click(); };
    RestoreDesign();
}

void frmBrowse::RestoreDesign()
{
    picBrowse.SetPlace({210, 735, 4320, 3165});
    picBrowse.SetBackColor(platform::SystemColor::WindowBackground);
    Design(cmdAdd, {2100, 4095, 1140, 330}, "Add");
    cmdAdd.SetEnabled(true);
    Design(cmdClose, {3360, 4095, 1140, 330}, "Close");
    Design(Label1, {210, 210, 4215, 405}, "Select the folder that you want to search for duplicated files.");
}

void frmBrowse::Form_Load()
{
    search::frmMain().form.SetEnabled(false);
}

void frmBrowse::Form_Unload()
{
    search::frmMain().form.SetEnabled(true);
    CloseSysTree();
    platform::SetForegroundWindow(search::frmMain().form.hWnd());
}

void frmBrowse::cmdAdd_Click()
{
    if (sSelectedFolder.empty()) {
        return;
    }
    form.SetEnabled(false); // nothing is added twice
    const std::string sError = AddFolder(form.hWnd(), sSelectedFolder);
    form.SetEnabled(true);
    if (!sError.empty()) {
        platform::System().messages->Show(sError + ".", platform::MessageIcon::Exclamation);
    }
}

frmBrowse& theBrowseForm()
{
    static frmBrowse form;
    return form;
}

} // namespace dialogs

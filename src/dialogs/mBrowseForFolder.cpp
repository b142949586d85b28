// SPDX-License-Identifier: MIT
#include "mBrowseForFolder.h"

#include "System.h"
#include "WindowFunctions.h"
#include "mFileDialog.h"

namespace dialogs {
namespace {

constexpr std::size_t kPathBuffer = 266;

std::string sBrowseStart; ///< the folder to select when the dialog opens, followed by a NUL

int BrowseCallback(platform::WindowHandle hWnd, unsigned uMsg, long /*lParam*/, long /*lpData*/)
{
    if (uMsg == platform::BFFM_INITIALIZED) {
        platform::SendMessageA(hWnd, platform::BFFM_SETSELECTIONA, 1, sBrowseStart);
    }
    return 0;
}

} // namespace

std::string BrowseForFolder(platform::WindowHandle hOwner, const std::string& sTitle,
                            const std::string& sStart)
{
    // The callback is needed only to select a folder.
    platform::BROWSEINFO info;
    info.hwndOwner = hOwner;
    info.lpszTitle = sTitle;
    info.ulFlags = platform::BIF_RETURNONLYFSDIRS;
    if (!sStart.empty()) {
        sBrowseStart = sStart + '\0';
        info.lpfn = &BrowseCallback;
    }
    // On Cancel there is no item, and the buffer does not change.
    const platform::ItemId pidl = platform::System().dialogs->SHBrowseForFolderA(info);
    std::string sBuffer(kPathBuffer, '\0');
    platform::System().dialogs->SHGetPathFromIDListA(pidl, sBuffer);
    std::string sFolder = StripNull(sBuffer);
    platform::System().dialogs->CoTaskMemFree(pidl);
    return sFolder;
}

std::string StripNull(const std::string& sText)
{
    return results::CutAtNull(sText);
}

} // namespace dialogs

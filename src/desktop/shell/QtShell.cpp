// SPDX-License-Identifier: MIT
#include "QtShell.h"

#include "FolderDialog.h"

#include <utility>

namespace desktop {

platform::ItemId QtShell::SHBrowseForFolder(const platform::BROWSEINFO& info)
{
    FolderDialog dialog(info);
    FolderDialog* const pBefore = std::exchange(m_pDialog, &dialog);
    dialog.Run();
    m_pDialog = pBefore;
    // The dialog has no OK button, so no item can be chosen.
    return 0;
}

bool QtShell::SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer)
{
    const std::string sPath = m_pDialog == nullptr ? std::string() : m_pDialog->Path(pidl);
    if (sPath.empty()) {
        return false;
    }
    sBuffer.replace(0, sPath.size() + 1, sPath + '\0');
    return true;
}

} // namespace desktop

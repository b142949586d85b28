// SPDX-License-Identifier: MIT
#include "QtShellDialogs.h"

#include "CanonicalPath.h"
#include "FolderChooser.h"
#include "HostedFolderDialog.h"
#include "SaveChooser.h"

#include <utility>

namespace desktop {
namespace {

/// Writes a path and a NUL over the start of a buffer, which grows if needed; false for no path.
bool WriteInto(std::string& sBuffer, const std::string& sPath)
{
    if (!sPath.empty()) {
        sBuffer.replace(0, sPath.size() + 1, sPath + '\0');
    }
    return !sPath.empty();
}

} // namespace

platform::ItemId QtShellDialogs::SHBrowseForFolder(const platform::BROWSEINFO& info)
{
    HostedFolderDialog dialog(info);
    HostedFolderDialog* const pBefore = std::exchange(m_pHosted, &dialog);
    dialog.Run();
    m_pHosted = pBefore;
    // The dialog has no OK button, so no item can be chosen.
    return 0;
}

bool QtShellDialogs::SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer)
{
    return m_pHosted != nullptr && WriteInto(sBuffer, m_pHosted->Path(pidl));
}

platform::ItemId QtShellDialogs::SHBrowseForFolderA(const platform::BROWSEINFO& info)
{
    std::string sChosen = FolderChooser(info).Choose();
    if (sChosen.empty()) {
        return 0;
    }
    // Links are resolved here, when the folder is chosen; a link that appears later was made by someone else.
    std::string sCanonical = CanonicalPath(sChosen);
    m_chosen[++m_last] = sCanonical.empty() ? std::move(sChosen) : std::move(sCanonical);
    return m_last;
}

bool QtShellDialogs::SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer)
{
    const auto found = m_chosen.find(pidl);
    return found != m_chosen.end() && WriteInto(sBuffer, found->second);
}

bool QtShellDialogs::GetSaveFileNameA(platform::OPENFILENAME& request)
{
    return WriteInto(request.lpstrFile, SaveChooser(request).Choose());
}

} // namespace desktop

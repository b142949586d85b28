// SPDX-License-Identifier: MIT
#include "QtFileDialogs.h"

#include "CanonicalPath.h"
#include "FolderChooser.h"
#include "SaveChooser.h"

#include <utility>

namespace desktop {
namespace {

/// Writes a path and a NUL over the start of a buffer, which grows if needed.
void WriteInto(std::string& sBuffer, const std::string& sPath)
{
    sBuffer.replace(0, sPath.size() + 1, sPath + '\0');
}

} // namespace

platform::ItemId QtFileDialogs::SHBrowseForFolderA(const platform::BROWSEINFO& info)
{
    std::string sChosen = FolderChooser(info).Choose();
    if (sChosen.empty()) {
        return 0;
    }
    // Links are resolved here, when the folder is chosen; a link that appears later was made by someone else.
    std::string sCanonical = CanonicalPath(sChosen);
    sChosen = sCanonical.empty() ? std::move(sChosen) : std::move(sCanonical);
    m_chosen[++m_last] = std::move(sChosen);
    return m_last;
}

bool QtFileDialogs::SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer)
{
    const auto found = m_chosen.find(pidl);
    if (found == m_chosen.end()) {
        return false;
    }
    WriteInto(sBuffer, found->second);
    return true;
}

void QtFileDialogs::CoTaskMemFree(platform::ItemId pidl)
{
    m_chosen.erase(pidl);
}

bool QtFileDialogs::GetSaveFileNameA(platform::OPENFILENAME& request)
{
    const std::string sChosen = SaveChooser(request).Choose();
    if (sChosen.empty()) {
        return false;
    }
    WriteInto(request.lpstrFile, sChosen);
    return true;
}

} // namespace desktop

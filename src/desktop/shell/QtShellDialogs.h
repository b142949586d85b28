// SPDX-License-Identifier: MIT
#pragma once

#include "ShellDialogs.h"

#include <map>
#include <string>

namespace desktop {

class HostedFolderDialog;

/// The folder and file dialogs of the shell, implemented with Qt.
class QtShellDialogs final : public platform::ShellDialogs
{
public:
    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& info) override;
    bool SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer) override;

    platform::ItemId SHBrowseForFolderA(const platform::BROWSEINFO& info) override;
    bool SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer) override;
    void CoTaskMemFree(platform::ItemId pidl) override { m_chosen.erase(pidl); }
    bool GetSaveFileNameA(platform::OPENFILENAME& request) override;

private:
    HostedFolderDialog* m_pHosted = nullptr;          ///< the running one
    std::map<platform::ItemId, std::string> m_chosen; ///< until they are freed
    platform::ItemId m_last = 0;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "ShellDialogs.h"

#include <string>

namespace desktop {

class FolderDialog;

/// The shell's dialogs, implemented with Qt.
class QtShell final : public platform::ShellDialogs
{
public:
    platform::ItemId SHBrowseForFolder(const platform::BROWSEINFO& info) override;
    bool SHGetPathFromIDList(platform::ItemId pidl, std::string& sBuffer) override;

private:
    FolderDialog* m_pDialog = nullptr; ///< the running one
};

} // namespace desktop

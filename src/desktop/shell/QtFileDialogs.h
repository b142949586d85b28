// SPDX-License-Identifier: MIT
#pragma once

#include "FileDialogs.h"
#include "ShellDialogs.h"

#include <map>
#include <string>

namespace desktop {

/// The modal folder and file dialogs, implemented with Qt.
class QtFileDialogs final : public platform::FileDialogs
{
public:
    platform::ItemId SHBrowseForFolderA(const platform::BROWSEINFO& info) override;
    bool SHGetPathFromIDListA(platform::ItemId pidl, std::string& sBuffer) override;
    void CoTaskMemFree(platform::ItemId pidl) override;
    bool GetSaveFileNameA(platform::OPENFILENAME& request) override;

private:
    std::map<platform::ItemId, std::string> m_chosen; ///< until they are freed
    platform::ItemId m_last = 0;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "FileIdentity.h"
#include "HeldFolder.h"
#include "Renaming.h"

#include <string>
#include <utility>

namespace desktop {

/// A name in a held folder.
class FolderEntry
{
public:
    FolderEntry(FolderPtr pFolder, std::string sName)
        : m_pFolder(std::move(pFolder)), m_name{m_pFolder->Get(), std::move(sName)}
    {
    }

    [[nodiscard]] const HeldFolder& Folder() const { return *m_pFolder; }
    [[nodiscard]] const FolderPtr& SharedFolder() const { return m_pFolder; }
    [[nodiscard]] const tName& Name() const { return m_name; }

    /// Its full path, as long as the folder has not been moved.
    [[nodiscard]] std::string Path() const;

    /// Looks at the name without following a link. Contains the folder's error if that could not be opened.
    [[nodiscard]] tLook Look() const;

    /// Opens the file without following a link. Sets `nError` to the error number.
    [[nodiscard]] Descriptor Open(int nFlags, int& nError) const;

private:
    FolderPtr m_pFolder;
    tName m_name;
};

} // namespace desktop

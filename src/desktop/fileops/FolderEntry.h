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

    /// Where it is, as long as the folder is where it was.
    [[nodiscard]] std::string Path() const;

    /// What bears the name, a link itself and not what it leads to. Says why where the folder could not be
    /// opened.
    [[nodiscard]] tLook Look() const;

    /// Opens what bears the name; never through a link. `nError` takes the system's error number.
    [[nodiscard]] Descriptor Open(int nFlags, int& nError) const;

private:
    FolderPtr m_pFolder;
    tName m_name;
};

/// The name at the end of a path.
std::string NameOf(const std::string& sPath);

} // namespace desktop

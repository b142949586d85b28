// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "FileIdentity.h"

#include <memory>
#include <string>

namespace desktop {

/// A folder that is held open, so that operations act on this folder whatever happens to its path.
class HeldFolder
{
public:
    /// Opens the folder with this full path. Fails if a link is on the path.
    explicit HeldFolder(const std::string& sPath);

    /// No folder, with this error number.
    explicit HeldFolder(int nError) : m_look{nError, {}} {}

    /// The error number if it could not be opened, otherwise 0.
    [[nodiscard]] int Error() const { return m_look.nError; }

    /// Usable only as the base of relative names (O_PATH).
    [[nodiscard]] int Get() const { return m_folder.Get(); }
    [[nodiscard]] const std::string& Path() const { return m_sPath; }

    /// Its status when it was opened.
    [[nodiscard]] const tLook& Look() const { return m_look; }

    /// True if the path still leads to this folder.
    [[nodiscard]] bool IsWhereItWas() const;

private:
    std::string m_sPath;
    Descriptor m_folder;
    tLook m_look;
};

using FolderPtr = std::shared_ptr<const HeldFolder>;

/// Reopens an open folder for listing or syncing. Not open on failure, with errno set.
Descriptor Reopened(int hFolder);

/// Syncs the entries of a folder to disk; `hFile` is an open file in it. Returns 0 or the error number.
int SyncFolder(const HeldFolder& folder, int hFile);

} // namespace desktop

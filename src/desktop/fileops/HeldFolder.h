// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "FileIdentity.h"

#include <memory>
#include <string>

namespace desktop {

/// A folder that is held open, so that what is done in it is done in this one whatever becomes of its path.
class HeldFolder
{
public:
    /// Opens the folder of this full path, unless a link is on the way.
    explicit HeldFolder(const std::string& sPath);

    /// None, for this reason.
    explicit HeldFolder(int nError) : m_look{nError, {}} {}

    /// The system's error number if it could not be opened, otherwise 0.
    [[nodiscard]] int Error() const { return m_look.nError; }

    /// Only good as the place from which names lead on.
    [[nodiscard]] int Get() const { return m_folder.Get(); }
    [[nodiscard]] const std::string& Path() const { return m_sPath; }

    /// What it was when it was opened.
    [[nodiscard]] const tLook& Look() const { return m_look; }

    /// True if the path leads to this very folder now.
    [[nodiscard]] bool IsWhereItWas() const;

private:
    std::string m_sPath;
    Descriptor m_folder;
    tLook m_look;
};

using FolderPtr = std::shared_ptr<const HeldFolder>;

/// Opens an open folder once more, to list or to sync it. Not open if that failed, with errno.
Descriptor Reopened(int hFolder);

} // namespace desktop

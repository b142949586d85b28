// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <atomic>
#include <memory>
#include <string>

namespace desktop {

/// True if a file system is mounted in two places or the system does not say: only then can two paths lead to
/// one folder.
bool AnyMountedTwice();

/// Lists folders, one after the other.
class FolderAccess
{
public:
    FolderAccess();

    /// Reads the entries of folder `sPath`, which ends in a separator, into `listing`, in the order in which
    /// a search takes them; where `bIdentity`, also what tells the folder from others. False if it cannot be
    /// opened; a listing that fails part way, or is broken off by `bEnded`, keeps what it got.
    bool List(const std::string& sPath, bool bIdentity, const std::atomic<bool>& bEnded,
              platform::FolderListing& listing);

private:
    std::unique_ptr<char[]> m_entries; ///< where the kernel writes the entries of a folder
};

} // namespace desktop

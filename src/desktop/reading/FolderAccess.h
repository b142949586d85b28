// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <atomic>
#include <memory>
#include <string>

namespace desktop {

/// True if a file system is mounted in two places, or if this is unknown: only then can two paths lead to the
/// same folder.
bool AnyMountedTwice();

/// Lists folders, one after the other.
class FolderAccess
{
public:
    FolderAccess();

    /// Reads the entries of folder `sPath`, which ends in a separator, into `listing`, sorted in search
    /// order, and with `bIdentity` also the identity of the folder. False if it cannot be opened. A listing
    /// that fails part way or is interrupted by `bEnded` keeps the entries read so far.
    bool List(const std::string& sPath, bool bIdentity, const std::atomic<bool>& bEnded,
              platform::FolderListing& listing);

private:
    std::unique_ptr<char[]> m_entries; ///< buffer for the entries returned by the kernel
};

} // namespace desktop

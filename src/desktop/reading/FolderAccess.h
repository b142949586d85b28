// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"
#include "FolderReader.h"

#include <atomic>
#include <string>

namespace desktop {

/// Lists folders, one after the other.
class FolderAccess
{
public:
    /// Reads the entries of folder `sPath`, which ends in a separator, into `listing`, sorted in search
    /// order, and with `bIdentity` also the identity of the folder. False if it cannot be opened. A listing
    /// that fails part way or is interrupted by `bEnded` keeps the entries read so far.
    bool List(const std::string& sPath, bool bIdentity, const std::atomic<bool>& bEnded,
              platform::FolderListing& listing);

private:
    FolderReader m_reader;
};

} // namespace desktop

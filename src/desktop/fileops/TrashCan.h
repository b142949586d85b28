// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"
#include "FolderEntry.h"
#include "HeldFile.h"
#include "HeldFolder.h"
#include "LastLook.h"
#include "TrashFolders.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

/// Where a file lies in the trash.
struct tTrashed {
    TrashPtr pTrash;
    std::string sName; ///< its name there
};

/// The user's trash: the home trash, or that of the file's own volume.
class TrashCan
{
public:
    /// Asked before a file goes, by its position. False: the user has cancelled.
    using Begins = std::function<bool(std::size_t)>;
    /// Told how it ended, by its position.
    using Ends = std::function<void(std::size_t, tEnding)>;

    /// `pLastLook`, which may be null, must outlive it.
    explicit TrashCan(LastLook* pLastLook = nullptr) : m_pLastLook(pLastLook) {}

    /// The trash for what is in a held folder; null if there is none, and `sReason` says why.
    TrashPtr TrashOf(const HeldFolder& folder, std::string& sReason)
    {
        return m_folders.For(folder, false, sReason);
    }

    /// Puts files, which are held, into the trash and makes sure that they can be restored from there;
    /// otherwise a file is where it was, or the reason says where. After a cancel the rest end as Cancelled.
    void Put(const std::vector<HeldFile>& files, const Begins& begins, const Ends& ends);

    /// The same for one, of which `trashed` then tells where it is. There is no last look at it.
    tEnding Put(const HeldFile& file, tTrashed& trashed);

    /// Takes a file out of the trash and back to where it was, replacing nothing. False if that failed: it
    /// then still lies in the trash.
    static bool PutBack(const tTrashed& trashed, const FolderEntry& to);

private:
    TrashFolders m_folders;
    LastLook* m_pLastLook;
};

} // namespace desktop

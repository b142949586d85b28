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

/// The location of a file in the trash.
struct tTrashed {
    TrashPtr pTrash;
    std::string sName; ///< its name in the trash
};

/// The user's trash: the home trash, or that of the file's volume.
class TrashCan
{
public:
    /// Called before a file goes, with its index. Returns false if the user has cancelled.
    using Begins = std::function<bool(std::size_t)>;
    /// Called with the index and the result of a file.
    using Ends = std::function<void(std::size_t, tEnding)>;

    /// `pLastLook`, which may be null, must outlive it.
    explicit TrashCan(LastLook* pLastLook = nullptr) : m_pLastLook(pLastLook) {}

    /// The trash for the contents of a held folder; null if there is none, and `sReason` is set to the
    /// reason.
    TrashPtr TrashOf(const HeldFolder& folder, std::string& sReason)
    {
        return m_folders.For(folder, false, sReason);
    }

    /// Moves held files to the trash and ensures that they can be restored from there; otherwise a file is
    /// where it was, or the reason says where it is. After a cancel the remaining files end as Cancelled.
    void Put(const std::vector<HeldFile>& files, const Begins& begins, const Ends& ends);

    /// The same for a single file; sets `trashed` to its location. Without a last look.
    tEnding Put(const HeldFile& file, tTrashed& trashed);

    /// Moves a file from the trash back to where it was, without replacing anything. On failure returns
    /// false, and the file stays in the trash.
    static bool PutBack(const tTrashed& trashed, const FolderEntry& to);

private:
    TrashFolders m_folders;
    LastLook* m_pLastLook;
};

} // namespace desktop

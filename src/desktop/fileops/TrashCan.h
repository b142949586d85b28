// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFile.h"
#include "TrashFolders.h"

#include <functional>
#include <string>
#include <utility>
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
    /// What is called for each of several files, by its position.
    struct tCalls {
        std::function<bool(std::size_t)> begins;      ///< before a file goes. False: the user has cancelled
        std::function<tEnding(std::size_t)> lastLook; ///< right before: done, or why it is to stay
        std::function<tEnding(std::size_t)> lookBack; ///< right behind: done, or why it is to come back
        std::function<void(std::size_t, tEnding)> ends;
    };

    /// Puts files, which are held, into the trash and makes sure that they can be restored from there;
    /// otherwise a file is where it was, or the reason says where. After a cancel the rest end as Cancelled.
    void Put(const std::vector<HeldFile>& files, const tCalls& calls);

    /// The same for one, of which `trashed` then tells where it is.
    tEnding Put(const HeldFile& file, tTrashed& trashed);

    /// Takes a file out of the trash and back to where it was, replacing nothing. False if that failed: it
    /// then still lies in the trash.
    static bool PutBack(const tTrashed& trashed, const FolderEntry& to);

private:
    TrashFolders m_folders;
};

} // namespace desktop

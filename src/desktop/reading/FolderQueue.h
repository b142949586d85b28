// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"
#include "SearchReading.h"

#include <cstddef>
#include <list>
#include <string>
#include <vector>

namespace desktop {

/// The folders of a walk, in the order in which it will ask for them: the subfolders of a folder are inserted
/// after it as soon as they are known. A limit on the number of entries held determines how far folders are
/// listed ahead. Needs a lock if threads share it.
class FolderQueue
{
public:
    struct tFolder {
        std::string sPath; ///< ends in a separator
        bool bTaken = false;
        bool bListed = false;
        bool bOpened = false; ///< false: the folder could not be opened
        platform::FolderListing listing;
    };
    using Place = std::list<tFolder>::iterator;

    explicit FolderQueue(const platform::tSearchedFolders& searched);

    /// True if there is a folder to list now.
    [[nodiscard]] bool MayTake() const;

    /// The next folder to list; requires MayTake(). Its path does not change until it has been listed.
    Place Take();

    /// Stores the result for a folder returned by Take. Its subfolders are inserted after it in this order.
    void Listed(Place folder, bool bOpened, platform::FolderListing listing, std::list<tFolder> subfolders);

    /// The subfolders of `sPath` that the walk will enter, for use with Listed.
    [[nodiscard]] std::list<tFolder> Subfolders(const std::string& sPath,
                                                const platform::FolderListing& listing) const;

    /// The folder `sPath` that the walk currently asks for. This is the first of the queue; if the walk takes
    /// another way than expected, the folder is inserted there.
    tFolder& Asked(const std::string& sPath);

    /// Removes the folder last passed to Asked, which must have been listed, and returns its listing.
    platform::FolderListing Drop();

    /// True if enough is listed to make it worth waking the walk.
    [[nodiscard]] bool ReadyForMuch() const;

private:
    [[nodiscard]] std::vector<Place>::const_reverse_iterator NextToTake() const;

    bool m_bHidden;
    std::size_t m_nMaxSubfolders;
    std::list<tFolder> m_order;  ///< the first one is what the walk will ask for next
    std::vector<Place> m_toList; ///< those not listed yet, in reverse order
    std::size_t m_nHeld = 0;     ///< number of entries listed but not handed over yet
    bool m_bFull = false;        ///< the limit was reached; listing ahead pauses until the walk has caught up
};

} // namespace desktop

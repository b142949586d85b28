// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"
#include "SearchReading.h"

#include <cstddef>
#include <list>
#include <string>
#include <vector>

namespace desktop {

/// The folders of a walk in the order in which it will ask for them: each is followed by its subfolders as
/// soon as these are known. Listed ahead is as much as the bound on entries held allows. Whoever shares it
/// between threads locks.
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

    /// True if there is a folder that may be listed now.
    [[nodiscard]] bool MayTake() const;

    /// The next folder to list; only if MayTake(). Its path stays as it is until it has been listed.
    Place Take();

    /// Notes what became of a folder taken. Its subfolders, in order, come right behind it.
    void Listed(Place folder, bool bOpened, platform::FolderListing listing, std::list<tFolder> subfolders);

    /// The paths of the subfolders of `sPath` that the walk will enter, for Listed.
    [[nodiscard]] std::list<tFolder> Subfolders(const std::string& sPath,
                                                const platform::FolderListing& listing) const;

    /// The folder that the walk asks for now, `sPath`, which is the next one unless the walk goes another way
    /// than expected.
    tFolder& Asked(const std::string& sPath);

    /// Hands over the listing of the folder asked for last, which has been listed.
    platform::FolderListing Drop();

    /// True if so much is ready that the walk should be told of it.
    [[nodiscard]] bool ReadyForMuch() const;

private:
    [[nodiscard]] std::vector<Place>::const_reverse_iterator NextToTake() const;

    bool m_bHidden;
    std::size_t m_nMaxSubfolders;
    std::list<tFolder> m_order;  ///< the first is the next that the walk asks for
    std::vector<Place> m_toList; ///< those that are not listed, from the last to the first
    std::size_t m_nHeld = 0;     ///< entries listed and not handed over
    bool m_bFull = false;        ///< so many that the walk has to come nearer first
};

} // namespace desktop

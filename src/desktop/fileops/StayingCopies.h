// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "FileIdentity.h"
#include "FolderEntry.h"
#include "HeldFolder.h"
#include "HeldFolders.h"
#include "MountTable.h"
#include "OperationPlan.h"
#include "TrashLocations.h"
#include "WhatStays.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace desktop {

/// A file that is to stay, as it was seen.
struct tStayingCopy {
    std::string sPath;
    tFileIdentity identity;
};

/// Checks which files stay from the groups of the files that are to go to the trash.
class StayingCopies
{
public:
    /// `groups` contains the row and the group of each file. `files` and `folders` must outlive this object.
    StayingCopies(platform::tFileGroups groups, const std::vector<tPlannedFile>& files, HeldFolders& folders);

    /// Looks at the disk. Calls `goOn` with the path before each look, and returns false if that does.
    bool Look(const std::function<bool(const std::string&)>& goOn);

    /// How the search that found the groups compared files.
    [[nodiscard]] platform::ComparedBy ComparedBy() const { return m_groups.comparedBy; }

    /// What stays of file number `nFile`. Empty for a file without a group.
    [[nodiscard]] std::optional<Stays> Of(std::size_t nFile) const;

    /// True if the file differs from what its row shows.
    [[nodiscard]] bool HasChanged(std::size_t nFile) const { return !m_seen[nFile].bAsShown; }

    /// Files that stay and have its contents; at most a few.
    [[nodiscard]] std::vector<tStayingCopy> CopiesOf(std::size_t nFile) const;

private:
    using RowFile = std::optional<platform::tFileGroups::tFile>;

    [[nodiscard]] const RowFile& RowOf(std::size_t nFile) const
    {
        static const RowFile none;
        const std::size_t nAsked = m_files[nFile].nAsked;
        return nAsked < m_groups.files.size() ? m_groups.files[nAsked] : none;
    }
    void LookAtGoing();
    void LookAtStaying(const platform::tShownFile& shown, std::size_t nPlace, StayingFiles& group);
    bool IsAsShown(const tFileIdentity& identity, const platform::tShownFile& shown);
    bool IsGoing(const FolderEntry& entry, const tLook& look) const;
    bool IsViewOfGoing(const FolderEntry& entry, const tLook& look);
    bool StoresFiles(const FolderPtr& pFolder);

    platform::tFileGroups m_groups;
    const std::vector<tPlannedFile>& m_files;
    HeldFolders& m_folders;
    std::vector<tSeenFile> m_seen;                                 ///< for each file
    std::vector<StayingFiles> m_staying;                           ///< for each group
    std::unordered_multimap<std::uint64_t, std::size_t> m_byInode; ///< files that go
    std::string m_sDate;                                           ///< the time formatted last
    std::int64_t m_nDateOf = 0;                                    ///< its value in seconds
    std::unordered_multimap<std::int64_t, std::size_t> m_byChange; ///< files that go, by time of change
    std::set<std::uint64_t> m_devices;                             ///< of the files that go
    std::optional<MountTable> m_mounts;                            ///< once it is needed
    TrashLocations m_trashes;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "FileIdentity.h"
#include "FolderEntry.h"
#include "HeldFolder.h"
#include "HeldFolders.h"
#include "OperationPlan.h"
#include "WhatStays.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace desktop {

/// What was seen of a file that is to stay.
struct tStayingCopy {
    std::string sPath;
    tFileIdentity identity;
};

/// Looks, for files that are to go to the trash, at those of their groups that stay.
class StayingCopies
{
public:
    /// `groups` says of each file what its row and its group are. `files` and `folders` must outlive this
    /// object.
    StayingCopies(platform::tFileGroups groups, const std::vector<tPlannedFile>& files, HeldFolders& folders);

    /// Looks at the disk. False if `goOn`, called before each look with the path, does not want it any more.
    bool Look(const std::function<bool(const std::string&)>& goOn);

    /// How the search compared that found the groups.
    [[nodiscard]] platform::ComparedBy ComparedBy() const { return m_groups.comparedBy; }

    /// What stays of the `nFile`th of the files. None for one that is in no group.
    [[nodiscard]] std::optional<Stays> Of(std::size_t nFile) const;

    /// True if the file itself is not what its row shows.
    [[nodiscard]] bool HasChanged(std::size_t nFile) const { return !m_seen[nFile].bAsShown; }

    /// What holds its contents and stays, a few at most.
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
    bool LiesInTrash(const HeldFolder& folder);

    platform::tFileGroups m_groups;
    const std::vector<tPlannedFile>& m_files;
    HeldFolders& m_folders;
    std::vector<tSeenFile> m_seen;                                 ///< for each of the files
    std::vector<StayingFiles> m_staying;                           ///< for each of the groups
    std::unordered_multimap<std::uint64_t, std::size_t> m_byInode; ///< files that go
    std::string m_sDate;                                           ///< the time written out last
    std::int64_t m_nDateOf = 0;                                    ///< which that was
    std::unordered_map<std::string, bool> m_trashes;               ///< folders, and whether they lie in one
};

} // namespace desktop

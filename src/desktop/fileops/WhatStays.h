// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace desktop {

/// What stays of a file's contents when the file goes.
enum class Stays {
    Copy,          ///< another file of the group; neither has changed since the search
    SameFile,      ///< only the file itself, under another name
    Nothing,       ///< no file of its group
    FileChanged,   ///< files that it was equal to before it changed
    CopiesChanged, ///< files that were equal to it before they changed
    OtherSize,     ///< files of other sizes; the search did not compare contents
};

/// A file of a group as seen on disk.
struct tSeenFile {
    tFileIdentity identity;
    bool bAsShown = true; ///< size and modification time are as shown in its row
};

/// The existing files of a group that stay, and what that means for those that go. Does no disk access
/// itself.
class StayingFiles
{
public:
    /// Adds a file of the group that is to go. Must be called before the first Add.
    void Goes(const tSeenFile& file);

    /// Adds file number `nPlace` of the group, which exists and stays.
    void Add(const tSeenFile& file, std::size_t nPlace);

    /// True if further files that stay would make no difference.
    [[nodiscard]] bool IsEnough() const;

    /// What stays of a file that goes.
    [[nodiscard]] Stays Of(const tSeenFile& file) const;

    /// A file that stays.
    struct tCopy {
        std::size_t nPlace;
        tFileIdentity identity;
    };

    /// The files that a file that goes can be compared with, at most a few: copies, or itself under another
    /// name.
    [[nodiscard]] std::vector<tCopy> CopiesOf(const tSeenFile& file) const;

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>; ///< device and inode
    using Copies = std::vector<tCopy>;

    static Identity IdentityOf(const tSeenFile& file)
    {
        return {file.identity.nDevice, file.identity.nInode};
    }
    std::map<Identity, std::size_t> m_staying; ///< each file once, with its first index
    std::map<std::int64_t, Copies> m_bySize;   ///< unchanged ones: a few of each size, each file once
    Copies m_unchanged;                        ///< a few unchanged files of any size
    Copies m_changed;                          ///< a few changed files
    std::set<std::int64_t> m_wanted;           ///< sizes of files that go and do not have enough copies yet
    bool m_bAnyChanged = false;                ///< a file that goes has changed
};

} // namespace desktop

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
    Copy,          ///< another file that was found alike, neither of them changed since
    SameFile,      ///< only the file itself, by another name
    Nothing,       ///< no file of its group
    FileChanged,   ///< a file that it was like before it changed
    CopiesChanged, ///< files that were like it before they changed
    OtherSize,     ///< files of other sizes; the search did not go by contents
};

/// A file of a group as it was seen on the disk.
struct tSeenFile {
    tFileIdentity identity;
    bool bAsShown = true; ///< size and time of writing are what its row shows
};

/// The files of one group that are there and stay, and what that means for those that go. Looks at nothing by
/// itself.
class StayingFiles
{
public:
    /// A file of the group that is to go. They come before the first Add.
    void Goes(const tSeenFile& file);

    /// The `nPlace`th file of the group is there and stays.
    void Add(const tSeenFile& file, std::size_t nPlace);

    /// True if nothing depends on further files that stay.
    [[nodiscard]] bool IsEnough() const;

    /// What stays of a file that goes.
    [[nodiscard]] Stays Of(const tSeenFile& file) const;

    /// A file that stays.
    struct tCopy {
        std::size_t nPlace;
        tFileIdentity identity;
    };

    /// What a file that goes may be compared with, a few at most: copies, or itself by another name.
    [[nodiscard]] std::vector<tCopy> CopiesOf(const tSeenFile& file) const;

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>; ///< device and inode
    using Copies = std::vector<tCopy>;

    static Identity IdentityOf(const tSeenFile& file)
    {
        return {file.identity.nDevice, file.identity.nInode};
    }
    std::map<Identity, std::size_t> m_staying; ///< each file once, with the first of its places
    std::map<std::int64_t, Copies> m_bySize;   ///< unchanged, of each size a few, no two of them one file
    Copies m_unchanged;                        ///< a few of any size
    Copies m_changed;                          ///< a few of those that have changed
    std::set<std::int64_t> m_wanted;           ///< sizes of files that go and have no choice of copies yet
    bool m_bAnyChanged = false;                ///< a file that goes has changed
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What a search is going to walk.
struct tSearchedFolders {
    std::vector<std::string> folders; ///< each with everything below it, in the order of the walk
    bool bHidden = false;             ///< hidden entries count
    std::size_t nMaxSubfolders = 0;   ///< so many accepted subfolders of a folder are entered, not more
};

/// A file of the table that is to be read.
struct tFileToRead {
    std::string_view sFolder; ///< with a separator at the end
    std::string_view sName;
    std::int64_t nBytes = 0; ///< so many of its first bytes count, zeros in place of those it does not have
};

/// Which files of the table a search will ask for, and what it wants to know of each.
struct tFilesToRead {
    std::uint32_t nTable = 0;          ///< the entries of the table, numbered from 0
    std::vector<std::uint32_t> wanted; ///< those that will be asked for for sure, in ascending order

    /// Entry `n` of the table. Called on any thread while the reading lives; the table must not change.
    tFileToRead (*fileAt)(std::uint32_t n) = nullptr;

    /// What is wanted of a file's bytes: a function of nothing but these, called on any thread.
    std::int32_t (*sumOf)(const std::uint8_t* pFirst, std::size_t nBytes) = nullptr;
};

/// How far the reading has come with something.
enum class Answer {
    NotYet, ///< ask again, after a look at the events
    Stuck,  ///< the same, and what is needed next should be told by ReadFirst
    Ready,
    Failed ///< it cannot be read
};

/// All reading of one search: what it will need is read ahead of it, and nothing is asked twice of the disk.
/// Lives as long as the search; with it goes all that it keeps. No operation waits for a disk, and none takes
/// more than a few milliseconds. Where memory runs out for it, its operations throw std::bad_alloc.
class SearchReading
{
public:
    virtual ~SearchReading() = default;

    /// Ready: `listing` holds the entries of folder `sPath`, which ends in a separator. Folders are listed in
    /// the order of the walk. Failed: it cannot be opened. A listing that fails part way keeps what it got.
    virtual Answer ListFolder(const std::string& sPath, FolderListing& listing) = 0;

    /// Begins to read the files wanted. Called once, after the walk.
    virtual void ReadFiles(tFilesToRead files) = 0;

    /// Ready: `nSum` is what is wanted of entry `n`. Each file is read once at most. One that has gone is
    /// created empty, by this question and not before. `nInHand` is the entry that the search is at.
    virtual Answer AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum) = 0;

    /// These entries will be asked for next, in this order.
    virtual void ReadFirst(std::vector<std::uint32_t> entries) = 0;
};

} // namespace platform

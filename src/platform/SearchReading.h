// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The folders that a search is going to walk.
struct tSearchedFolders {
    std::vector<std::string> folders; ///< each with all its subfolders, in walking order
    bool bHidden = false;             ///< include hidden entries
    std::size_t nMaxSubfolders = 0;   ///< upper limit of the accepted subfolders that are entered per folder
};

/// A file to read.
struct tFileToRead {
    std::string_view sFolder; ///< ends in a separator
    std::string_view sName;
    std::int64_t nBytes = 0; ///< how many of its first bytes to process; zeros if it is shorter
};

/// The files that a search will ask for, and how to process them.
struct tFilesToRead {
    std::uint32_t nTable = 0;          ///< the number of entries in the file table; they are numbered from 0
    std::vector<std::uint32_t> wanted; ///< those that are certain to be asked for, in ascending order

    /// Returns entry `n` of the table. Called from any thread during the lifetime of the reading; the table
    /// must not change.
    tFileToRead (*fileAt)(std::uint32_t n) = nullptr;

    /// Processes the bytes of a file. Called from any thread, so it must depend on nothing else.
    std::int32_t (*sumOf)(const std::uint8_t* pFirst, std::size_t nBytes) = nullptr;
};

/// The state of a request to SearchReading.
enum class Answer {
    NotYet, ///< ask again after handling pending events
    Stuck,  ///< the same, and the caller should name what it needs next with ReadFirst
    Ready,
    Failed ///< cannot be read
};

/// All reading for one search. It reads ahead of the search, and nothing is read from disk twice. It lives as
/// long as the search and releases everything at the end. No operation waits for a disk, and none takes more
/// than a few milliseconds. Operations throw std::bad_alloc when memory runs out.
class SearchReading
{
public:
    virtual ~SearchReading() = default;

    /// Ready: `listing` holds the entries of folder `sPath`, which ends in a separator. Folders must be asked
    /// for in walking order. Failed: the folder cannot be opened. A listing that fails part way keeps the
    /// entries read so far.
    virtual Answer ListFolder(const std::string& sPath, FolderListing& listing) = 0;

    /// Starts to read the files in `files.wanted`. Called once, after the walk.
    virtual void ReadFiles(tFilesToRead files) = 0;

    /// Ready: `nSum` is the result of `sumOf` for entry `n`. Each file is read at most once. A missing file
    /// is created empty, but only by this call, not by reading ahead. `nInHand` is the entry that the search
    /// is currently comparing with others.
    virtual Answer AskFor(std::uint32_t nInHand, std::uint32_t n, std::int32_t& nSum) = 0;

    /// Announces the entries that will be asked for next, in this order.
    virtual void ReadFirst(std::vector<std::uint32_t> entries) = 0;
};

} // namespace platform

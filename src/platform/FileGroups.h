// SPDX-License-Identifier: MIT
#pragma once

#include "TextStore.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

/// How the search that produced the rows of a list compared the files.
enum class ComparedBy { Content, Name, NameAndSize };

/// A file as shown in its row.
struct tShownFile {
    StoredText sFolder; ///< the folder part of the full path, exact bytes
    StoredText sName;   ///< exact bytes
    StoredText sSize;   ///< as displayed
    StoredText sDate;   ///< as displayed

    [[nodiscard]] std::string FullPath() const { return std::string(sFolder.View()).append(sName.View()); }
};

/// What the rows say about files that are about to be processed. Owns its texts, so that the rows may go away
/// meanwhile.
struct tFileGroups {
    /// One of the requested files.
    struct tFile {
        tShownFile shown;
        std::size_t nGroup = 0; ///< index into `groups`
    };

    ComparedBy comparedBy = ComparedBy::Content;
    std::vector<std::optional<tFile>> files; ///< one for each requested path; empty for a path without a row
    std::vector<std::vector<tShownFile>> groups; ///< for each group, the rows that stay, in list order
    TextStore texts;
};

/// Knows which files were found to be duplicates of each other.
class FileGroups
{
public:
    virtual ~FileGroups() = default;

    /// The groups of the files with the full paths `paths`, in any order. A row stays if it is neither
    /// selected nor marked as gone.
    virtual tFileGroups GroupsOf(std::span<const std::string> paths) = 0;
};

} // namespace platform

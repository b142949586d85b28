// SPDX-License-Identifier: MIT
#pragma once

#include "TextStore.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

/// How the search that made the rows of a list compared files.
enum class ComparedBy { Content, Name, NameAndSize };

/// A file as its row shows it.
struct tShownFile {
    StoredText sFolder; ///< in front of the name in the full path, exact bytes
    StoredText sName;   ///< exact bytes
    StoredText sSize;   ///< as shown
    StoredText sDate;   ///< as shown

    [[nodiscard]] std::string FullPath() const { return std::string(sFolder.View()).append(sName.View()); }
};

/// What the rows say of files that are about to be dealt with. It owns its texts: the rows may go meanwhile.
struct tFileGroups {
    /// One of the files asked about.
    struct tFile {
        tShownFile shown;
        std::size_t nGroup = 0; ///< in `groups`
    };

    ComparedBy comparedBy = ComparedBy::Content;
    std::vector<std::optional<tFile>> files; ///< one for each path asked about; none for a path without a row
    std::vector<std::vector<tShownFile>> groups; ///< the rows of each that are to stay, in their order
    TextStore texts;
};

/// Whoever knows which files have been found alike.
class FileGroups
{
public:
    virtual ~FileGroups() = default;

    /// The groups of the files `paths`, full paths in any order. A row is to stay if it is neither selected
    /// nor marked as gone.
    virtual tFileGroups GroupsOf(std::span<const std::string> paths) = 0;
};

} // namespace platform

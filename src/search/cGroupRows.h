// SPDX-License-Identifier: MIT
#pragma once

#include "ListItems.h"
#include "mCommon.h"

#include <cstddef>
#include <optional>

namespace search {

/// The pictures that mark a row's place in its group.
inline constexpr int kMarkFirst = 2;
inline constexpr int kMarkMiddle = 3;
inline constexpr int kMarkLast = 4;

/// How far behind each of them lies its picture for a file that has gone.
inline constexpr int kMarksGone = 3;

/// The columns behind the file's name, as ListItem::SubItems counts them.
inline constexpr std::size_t kSizeColumn = 1;
inline constexpr std::size_t kDateColumn = 2;
inline constexpr std::size_t kFolderColumn = 3;

/// Writes the groups that a search finds to lvFiles, as adjacent rows with their marks.
class cGroupRows
{
public:
    /// Closes the group before and begins one with `entry`. If the list has that file already, only the group
    /// before is closed.
    void OpenGroup(const tFileEntry& entry);

    /// Adds `entry` to the group; false if the list has that file already.
    bool Add(const tFileEntry& entry);

    /// Marks the last row added as the end of its group.
    void CloseGroup();

private:
    bool AddRow(const tFileEntry& entry, int nMark);

    std::optional<platform::ListItem> m_oItem; ///< the row last added
};

} // namespace search

// SPDX-License-Identifier: MIT
#pragma once

#include "GroupMarks.h"
#include "ListItems.h"
#include "mCommon.h"

#include <cstddef>
#include <optional>

namespace search {

/// The columns after the file's name, as counted by ListItem::SubItems.
inline constexpr std::size_t kSizeColumn = 1;
inline constexpr std::size_t kDateColumn = 2;
inline constexpr std::size_t kFolderColumn = 3;

/// Writes the groups found by a search to lvFiles, as adjacent rows with their group marks.
class cGroupRows
{
public:
    /// Closes the previous group and opens one with `entry`. If the list already contains that file, only
    /// closes the previous group.
    void OpenGroup(const tFileEntry& entry);

    /// Adds `entry` to the group; false if the list already contains that file.
    bool Add(const tFileEntry& entry) { return AddRow(entry, platform::kMarkMiddle); }

    /// Marks the row added last as the end of its group.
    void CloseGroup();

private:
    bool AddRow(const tFileEntry& entry, int nMark);

    std::optional<platform::ListItem> m_oItem; ///< the row added last
};

} // namespace search

#pragma once

#include "ListItems.h"
#include "mCommon.h"

#include <optional>

namespace search {

/// The pictures that mark a row's place in its group.
inline constexpr int kMarkFirst = 2;
inline constexpr int kMarkMiddle = 3;
inline constexpr int kMarkLast = 4;

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

// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QItemSelectionModel>

namespace desktop {

class RowModel;

/// The selection of a list for the toolkit's views. The `Selected` flags of the rows hold the state, and
/// selecting only sets these. The toolkit's own selection, which gets slow with many ranges, merely mirrors
/// the visible rows, so that they are painted and read out correctly.
class RowSelection final : public QItemSelectionModel
{
public:
    RowSelection(platform::ListView& list, RowModel& model);

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags flags) override;

    /// Mirrors the rows from `nFirst` to `nLast` and no others. In a list without full-row selection only the
    /// first column of a row is selected.
    void Mirror(int nFirst, int nLast);

    /// While this is set, the selection follows the list and writes nothing to it: the views change their
    /// selection on their own when rows are removed, but the list has other rules for that.
    bool bFollows = false;

private:
    platform::ListView& m_list;
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QItemSelectionModel>

namespace desktop {

class RowModel;

/// The selection of a list for the toolkit's views. The truth is the `Selected` of the rows: selecting writes
/// it, and nothing else. The toolkit's own selection, which grows slow with its ranges, is only a mirror of
/// the rows in sight, so that they are painted and read out as they are.
class RowSelection final : public QItemSelectionModel
{
public:
    RowSelection(platform::ListView& list, RowModel& model);

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags flags) override;

    /// Mirrors the rows from `nFirst` to `nLast`, no others. In a list without full row selection a row is
    /// selected in its first column.
    void Mirror(int nFirst, int nLast);

    /// While it follows the list it writes nothing to it: the views move their selection by themselves when
    /// rows go, and the list has rules of its own for that.
    bool bFollows = false;

private:
    platform::ListView& m_list;
};

} // namespace desktop

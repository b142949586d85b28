// SPDX-License-Identifier: MIT
#include "RowSelection.h"

#include "RowModel.h"

#include <utility>
#include <vector>

namespace desktop {

RowSelection::RowSelection(platform::ListView& list, RowModel& model)
    : QItemSelectionModel(&model), m_list(list)
{
    const auto tellCurrent = [this](const QModelIndex& current) {
        if (!bFollows && current.isValid()) {
            m_list.SetSelectedItem(static_cast<std::size_t>(current.row()));
        }
    };
    connect(this, &QItemSelectionModel::currentRowChanged, this, tellCurrent);
}

void RowSelection::select(const QItemSelection& selection, SelectionFlags flags)
{
    if (bFollows) {
        return;
    }
    std::vector<bool> selected = m_list.ListItems.Selection();
    const auto clear = [&] { selected.assign(selected.size(), false); };
    if (flags.testFlag(Clear)) {
        clear();
    }
    const bool bChangesRows = (flags & (Select | Deselect | Toggle)) != NoUpdate;
    for (const auto& range : bChangesRows ? selection : QItemSelection()) {
        if (!m_list.MultiSelect) {
            clear();
        }
        const int nTop = m_list.MultiSelect ? range.top() : range.bottom();
        for (auto nRow = static_cast<std::size_t>(nTop); nRow <= static_cast<std::size_t>(range.bottom());
             ++nRow) {
            selected[nRow] = flags.testFlag(Select) || (flags.testFlag(Toggle) && !selected[nRow]);
        }
    }
    m_list.ListItems.SetSelection(std::move(selected));
}

void RowSelection::Mirror(int nFirst, int nLast)
{
    const auto& selected = m_list.ListItems.Selection();
    const int nLastColumn = m_list.FullRowSelect() ? model()->columnCount() - 1 : 0;
    QItemSelection mirror;
    for (int nRow = nFirst; nRow <= nLast; ++nRow) {
        if (!selected[static_cast<std::size_t>(nRow)]) {
            continue;
        }
        const int nRunFirst = nRow;
        while (nRow < nLast && selected[static_cast<std::size_t>(nRow) + 1]) {
            ++nRow;
        }
        mirror.append(QItemSelectionRange(model()->index(nRunFirst, 0), model()->index(nRow, nLastColumn)));
    }
    if (mirror != this->selection()) {
        QItemSelectionModel::select(mirror, ClearAndSelect);
    }
}

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <optional>
#include <utility>

namespace desktop {

/// The rows of a list as a model for the toolkit's views, which reads each text from the row itself on
/// demand. Hundreds of thousands of rows may be added while the list is hidden, so additions and changes are
/// passed on together, when the view asks for it.
class RowModel final : public QAbstractTableModel
{
public:
    static constexpr int kSmallIconRole = Qt::UserRole; ///< the row's icon number

    explicit RowModel(platform::ListView& list) : m_list(list) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : m_nRows;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_list.ColumnCount());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int nRole) const override;
    [[nodiscard]] QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

    /// Passes added and changed rows on to the views.
    void TakeIn();

    // Notifications from the list. Rows are counted from 0.
    void RowChanged(std::size_t nRow);
    void RowRemoved(std::size_t nRow);
    void RowsCleared();
    void RowsSorted();

private:
    [[nodiscard]] QString Text(const QModelIndex& index) const;

    platform::ListView& m_list;
    int m_nRows = 0;                              ///< the number of rows that the views know
    std::optional<std::pair<int, int>> m_changed; ///< the first and the last changed row
};

} // namespace desktop

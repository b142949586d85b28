// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <optional>
#include <utility>

namespace desktop {

/// The rows of a list for the toolkit's views, which read each text from the row itself when they show it.
/// Rows are added by the hundred thousand while nobody sees them, so they and what changes in rows are taken
/// in together, when the view asks for it.
class RowModel final : public QAbstractTableModel
{
public:
    static constexpr int kSmallIconRole = Qt::UserRole; ///< the number of the row's picture

    explicit RowModel(platform::ListView& list) : m_list(list) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int nRole) const override;
    [[nodiscard]] QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

    /// Shows the rows that have been added, and tells of those that have changed.
    void TakeIn();

    // What the list has told. Rows are counted from 0.
    void RowChanged(std::size_t nRow);
    void RowRemoved(std::size_t nRow);
    void RowsCleared();
    void RowsSorted();

private:
    [[nodiscard]] QString Text(const QModelIndex& index) const;

    platform::ListView& m_list;
    int m_nRows = 0;                              ///< those that the views know of
    std::optional<std::pair<int, int>> m_changed; ///< the first and the last of those that have changed
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#include "RowModel.h"

#include "GroupMarks.h"
#include "ShownText.h"
#include "ToolkitValues.h"

#include <algorithm>
#include <array>

namespace desktop {
namespace {

/// The spoken form of a row's mark.
QLatin1String SpokenMark(int nSmallIcon)
{
    if (nSmallIcon < platform::kMarkFirst) {
        return {};
    }
    constexpr std::array<const char*, 6> kSpoken = {", first of group", ", in group",
                                                    ", last of group",  ", first of group, gone",
                                                    ", in group, gone", ", last of group, gone"};
    return QLatin1String(kSpoken.at(static_cast<std::size_t>(nSmallIcon - platform::kMarkFirst)));
}

} // namespace

QString RowModel::Text(const QModelIndex& index) const
{
    const auto item = m_list.ListItems(static_cast<std::size_t>(index.row()) + 1);
    return ShownText(index.column() == 0 ? item.Text()
                                         : item.SubItems(static_cast<std::size_t>(index.column())));
}

QVariant RowModel::data(const QModelIndex& index, int nRole) const
{
    // The views can ask for removed rows until they have been notified.
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) ||
        static_cast<std::size_t>(index.row()) >= m_list.ListItems.Count()) {
        return {};
    }
    const auto nSmallIcon = [&] {
        return m_list.ListItems(static_cast<std::size_t>(index.row()) + 1).SmallIcon();
    };
    switch (nRole) {
    case Qt::DisplayRole:
        return Text(index);
    case Qt::AccessibleTextRole:
        return index.column() == 0 ? Text(index) + SpokenMark(nSmallIcon()) : Text(index);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            AlignmentOf(m_list.ColumnHeaders(static_cast<std::size_t>(index.column()) + 1).alignment));
    case kSmallIconRole:
        return nSmallIcon();
    default:
        return {};
    }
}

QVariant RowModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nSection < 0 || nSection >= columnCount()) {
        return {};
    }
    const auto& column = m_list.ColumnHeaders(static_cast<std::size_t>(nSection) + 1);
    switch (nRole) {
    case Qt::DisplayRole:
        return QString::fromStdString(column.sText);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(AlignmentOf(column.alignment));
    default:
        return {};
    }
}

void RowModel::TakeIn()
{
    const auto nCount = static_cast<int>(m_list.ListItems.Count());
    if (nCount > m_nRows) {
        beginInsertRows({}, m_nRows, nCount - 1);
        m_nRows = nCount;
        endInsertRows();
    }
    if (const auto changed = std::exchange(m_changed, std::nullopt)) {
        dataChanged(index(changed->first, 0), index(changed->second, columnCount() - 1), {});
    }
}

void RowModel::RowChanged(std::size_t nRow)
{
    const auto nChanged = static_cast<int>(nRow);
    if (nChanged >= m_nRows) {
        return;
    }
    const auto before = m_changed.value_or(std::pair(nChanged, nChanged));
    m_changed = std::pair(std::min(before.first, nChanged), std::max(before.second, nChanged));
}

void RowModel::RowRemoved(std::size_t nRow)
{
    m_changed.reset();
    const auto nRemoved = static_cast<int>(nRow);
    if (nRemoved < m_nRows) {
        beginRemoveRows({}, nRemoved, nRemoved);
        --m_nRows;
        endRemoveRows();
    }
}

void RowModel::RowsCleared()
{
    beginResetModel();
    m_nRows = 0;
    m_changed.reset();
    endResetModel();
}

void RowModel::RowsSorted()
{
    // Makes the views refresh what they keep about rows: the current row, and the visible selected rows.
    layoutAboutToBeChanged();
    layoutChanged();
}

} // namespace desktop

// SPDX-License-Identifier: MIT
#include "ListView.h"

#include <algorithm>

namespace platform {
namespace {

ListViewObserver g_nobody;

} // namespace

ListView::ListView(Form& form) : ListItems(*this), m_form(form), m_pRowObserver(&g_nobody) {}

void ListView::ObserveRows(ListViewObserver* pObserver)
{
    m_pRowObserver = pObserver != nullptr ? pObserver : &g_nobody;
}

void ListView::AddColumn(const std::string& sHeader, Alignment alignment, float width, Ellipsis ellipsis)
{
    m_columns.emplace_back(sHeader, alignment, width, ellipsis);
}

std::optional<ListItem> ListView::SelectedItem()
{
    if (!m_nCurrent) {
        return std::nullopt;
    }
    return ListItem(ListItems, *m_nCurrent);
}

void ListView::SetSelectedItem(std::size_t nRow)
{
    m_nCurrent = nRow;
    m_pRowObserver->SelectionChanged();
}

std::optional<ListItem> ListView::HitTest(float x, float y)
{
    const auto nRow = m_pRowObserver->RowAt(x, y);
    return nRow ? std::optional(ListItem(ListItems, *nRow)) : std::nullopt;
}

void ListView::SetSorted(bool New_Sorted)
{
    m_bSorted = New_Sorted;
    if (m_bSorted) {
        SortRows(0);
    }
}

/// Sorts the rows; returns the new position of the row that was at `nFollowed`.
std::size_t ListView::SortRows(std::size_t nFollowed)
{
    const auto order = ListItems.Sort(m_nSortOrder != 0);
    const auto placeOf = [&](std::size_t nRow) {
        const auto found = std::find(order.begin(), order.end(), nRow);
        return static_cast<std::size_t>(found - order.begin());
    };
    if (m_nCurrent) {
        m_nCurrent = placeOf(*m_nCurrent);
    }
    m_pRowObserver->RowsSorted();
    return placeOf(nFollowed);
}

long ListView::Message(unsigned nMessage, long wParam, long lParam)
{
    if (nMessage == LVM_GETEXTENDEDLISTVIEWSTYLE) {
        return m_nExtendedStyle;
    }
    if (nMessage == LVM_SETEXTENDEDLISTVIEWSTYLE) {
        const long nBefore = m_nExtendedStyle;
        Change(m_nExtendedStyle, lParam);
        return nBefore;
    }
    return NativeWindow::Message(nMessage, wParam, lParam);
}

std::size_t ListView::RowAdded(std::size_t nRow)
{
    if (!m_nCurrent) {
        m_nCurrent = nRow;
    }
    m_pRowObserver->RowAdded(nRow);
    return m_bSorted ? SortRows(nRow) : nRow;
}

void ListView::SelectRow(std::size_t nRow, bool bSelected)
{
    auto& selected = ListItems.m_selected;
    if (bSelected && !MultiSelect) {
        selected.assign(selected.size(), false);
        m_nCurrent = nRow;
    }
    selected[nRow] = bSelected;
    m_pRowObserver->SelectionChanged();
}

void ListView::SelectionReplaced()
{
    const auto& selected = ListItems.m_selected;
    const auto found = std::find(selected.begin(), selected.end(), true);
    if (!MultiSelect && found != selected.end()) {
        m_nCurrent = static_cast<std::size_t>(found - selected.begin());
    }
    m_pRowObserver->SelectionChanged();
}

void ListView::RowRemoved(std::size_t nRow)
{
    // The row that moves up into the position of the current one becomes current, or at the end of the list
    // the row before it.
    const std::size_t nCount = ListItems.Count();
    if (nCount == 0) {
        m_nCurrent.reset();
    } else if (m_nCurrent && (*m_nCurrent > nRow || *m_nCurrent == nCount)) {
        --*m_nCurrent;
    }
    m_pRowObserver->RowRemoved(nRow);
}

void ListView::RowsCleared()
{
    m_nCurrent.reset();
    m_pRowObserver->RowsCleared();
}

} // namespace platform

// SPDX-License-Identifier: MIT
#include "RowPicking.h"

#include <algorithm>
#include <utility>

namespace desktop {

void RowPicking::Press(std::optional<std::size_t> row, std::size_t nLine, tHeld held)
{
    if (!m_list.MultiSelect) {
        SelectOnly(row);
        return;
    }
    m_before = m_list.ListItems.Selection();
    m_nStart = nLine;
    m_nLine.reset();
    m_drag = held.bCtrl || (held.bShift && !row) ? Drag::Add : Drag::Only;
    if (!row) {
        if (m_drag == Drag::Only) {
            SelectOnly(std::nullopt);
        }
        return;
    }
    if (held.bShift) {
        m_nStart = Anchor(*row);
    } else {
        m_anchor = row;
        m_drag = held.bCtrl && m_before[*row] ? Drag::Take : m_drag;
    }
    m_list.SetSelectedItem(*row);
    SelectTo(nLine);
}

void RowPicking::PressRight(std::optional<std::size_t> row, tHeld held)
{
    const bool bPlain = !held.bShift && !held.bCtrl;
    const bool bSelected = row && m_list.ListItems.Selection()[*row];
    if (bPlain && !bSelected) {
        SelectOnly(row);
    } else if (row) {
        m_list.SetSelectedItem(*row);
    }
}

void RowPicking::DragTo(std::size_t nLine)
{
    const std::size_t nCount = m_list.ListItems.Count();
    if (m_drag == Drag::None || nLine == m_nLine || m_before.size() != nCount) {
        return;
    }
    if (nCount > 0) {
        m_list.SetSelectedItem(std::min(nLine, nCount - 1));
    }
    SelectTo(nLine);
}

void RowPicking::Release()
{
    m_drag = Drag::None;
    m_before = {};
}

void RowPicking::MoveTo(std::size_t nRow, tHeld held)
{
    if (held.bCtrl && !held.bShift && m_list.MultiSelect) {
        m_list.SetSelectedItem(nRow);
        return;
    }
    Press(nRow, nRow, held);
    Release();
}

void RowPicking::PickCurrent(tHeld held)
{
    const auto current = m_list.SelectedItem();
    if (!current || (current->Selected() && !held.bShift && !held.bCtrl)) {
        return;
    }
    const std::size_t nRow = current->Index() - 1;
    Press(nRow, nRow, {held.bShift, held.bCtrl || !held.bShift});
    Release();
}

void RowPicking::Forget()
{
    m_anchor.reset();
    Release();
}

/// The start of a range to `nRow`.
std::size_t RowPicking::Anchor(std::size_t nRow)
{
    if (!m_anchor) {
        const auto current = m_list.SelectedItem();
        m_anchor = current ? current->Index() - 1 : nRow;
    }
    return *m_anchor;
}

void RowPicking::SelectOnly(std::optional<std::size_t> row)
{
    std::vector<bool> selected(m_list.ListItems.Count(), false);
    if (row) {
        selected[*row] = true;
        m_anchor = row;
        m_list.SetSelectedItem(*row);
    }
    m_list.ListItems.SetSelection(std::move(selected));
}

/// Selects the range from the start of the press to a line.
void RowPicking::SelectTo(std::size_t nLine)
{
    m_nLine = nLine;
    std::vector<bool> selected = m_drag == Drag::Only ? std::vector<bool>(m_before.size(), false) : m_before;
    const auto [nFirst, nLast] = std::minmax(m_nStart, nLine);
    const auto place = [&](std::size_t nRow) {
        return selected.begin() + static_cast<std::ptrdiff_t>(std::min(nRow, selected.size()));
    };
    std::fill(place(nFirst), place(nLast + 1), m_drag != Drag::Take);
    m_list.ListItems.SetSelection(std::move(selected));
}

} // namespace desktop

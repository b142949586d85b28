// SPDX-License-Identifier: MIT
#include "ListItems.h"

#include "ListView.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <utility>

namespace platform {

std::string ListItem::Key() const
{
    const auto& row = m_pItems->m_rows[m_nRow];
    return std::string(row.sHead.View()).append(row.KeyTail());
}

std::string_view ListItem::Text() const
{
    return m_pItems->m_rows[m_nRow].sText.View();
}

std::string_view ListItem::SubItems(std::size_t n) const
{
    return m_pItems->m_rows[m_nRow].aSubItems.at(n - 1).View();
}

void ListItem::SetSubItems(std::size_t n, std::string_view New_Text)
{
    auto& row = m_pItems->m_rows[m_nRow];
    const bool bIsHead = New_Text == row.sHead.View();
    row.aSubItems.at(n - 1) = bIsHead ? row.sHead : m_pItems->m_texts.Add(New_Text);
    m_pItems->m_list.m_pRowObserver->RowChanged(m_nRow);
}

int ListItem::SmallIcon() const
{
    return m_pItems->m_rows[m_nRow].nSmallIcon;
}

void ListItem::SetSmallIcon(int New_SmallIcon)
{
    m_pItems->m_rows[m_nRow].nSmallIcon = static_cast<std::uint8_t>(New_SmallIcon);
    m_pItems->m_list.m_pRowObserver->RowChanged(m_nRow);
}

bool ListItem::Selected() const
{
    return m_pItems->m_selected[m_nRow];
}

void ListItem::SetSelected(bool New_Selected)
{
    m_pItems->m_list.SelectRow(m_nRow, New_Selected);
}

void ListItem::EnsureVisible()
{
    m_pItems->m_list.m_pRowObserver->ShowRow(m_nRow);
}

StoredText ListItems::Head(std::string_view sHead)
{
    const std::uint64_t nHash = HashBytes(sHead);
    const auto isIt = [&](std::uint32_t n) { return m_heads[n].View() == sHead; };
    if (const auto* pHead = m_headsByText.Find(nHash, isIt)) {
        return m_heads[*pHead];
    }
    m_headsByText.Insert(nHash, static_cast<std::uint32_t>(m_heads.size()));
    return m_heads.emplace_back(m_texts.Add(sHead));
}

std::uint32_t* ListItems::FindKey(std::string_view sKey, std::uint64_t nHash)
{
    return m_keys.Find(nHash, [&](std::uint32_t n) {
        const std::string_view sHead = m_rows[n].sHead.View();
        const std::string_view sTail = m_rows[n].KeyTail();
        return sKey.size() == sHead.size() + sTail.size() && sKey.starts_with(sHead) && sKey.ends_with(sTail);
    });
}

std::optional<std::size_t> ListItems::Find(std::string_view sKey)
{
    const std::uint32_t* pRow = FindKey(sKey, HashBytes(sKey));
    return pRow != nullptr ? std::optional<std::size_t>(*pRow + 1) : std::nullopt;
}

std::optional<ListItem> ListItems::Add(std::string_view sKey, std::string_view sText, int nSmallIcon)
{
    const std::uint64_t nHash = HashBytes(sKey);
    if (FindKey(sKey, nHash) != nullptr) {
        return std::nullopt;
    }
    const std::size_t nRow = m_rows.size();
    m_keys.Insert(nHash, static_cast<std::uint32_t>(nRow));
    const bool bKeyEndsInText = sKey.ends_with(sText);
    const std::string_view sHead = bKeyEndsInText ? sKey.substr(0, sKey.size() - sText.size()) : sKey;
    m_rows.push_back(
        {Head(sHead), m_texts.Add(sText), {}, static_cast<std::uint8_t>(nSmallIcon), bKeyEndsInText});
    m_selected.push_back(false);
    return ListItem(*this, m_list.RowAdded(nRow));
}

void ListItems::Remove(std::size_t n)
{
    const auto nRow = static_cast<std::ptrdiff_t>(n - 1);
    m_rows.erase(m_rows.begin() + nRow);
    m_selected.erase(m_selected.begin() + nRow);
    IndexKeys();
    m_list.RowRemoved(n - 1);
}

std::size_t ListItems::SelectedCount() const
{
    return static_cast<std::size_t>(std::count(m_selected.begin(), m_selected.end(), true));
}

void ListItems::SetSelection(std::vector<bool> New_Selection)
{
    assert(New_Selection.size() == m_rows.size());
    m_selected = std::move(New_Selection);
    assert(m_list.MultiSelect || SelectedCount() <= 1);
    m_list.SelectionReplaced();
}

void ListItems::IndexKeys()
{
    m_keys.Clear();
    for (std::size_t n = 0; n < m_rows.size(); ++n) {
        m_keys.Insert(HashBytes(ListItem(*this, n).Key()), static_cast<std::uint32_t>(n));
    }
}

std::vector<std::size_t> ListItems::Sort(bool bDescending)
{
    std::vector<std::size_t> order(m_rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t nLeft, std::size_t nRight) {
        const std::string_view sLeft = m_rows[nLeft].sText.View();
        const std::string_view sRight = m_rows[nRight].sText.View();
        return bDescending ? sRight < sLeft : sLeft < sRight;
    });
    const auto rows = m_rows;
    const auto selected = m_selected;
    for (std::size_t n = 0; n < order.size(); ++n) {
        m_rows[n] = rows[order[n]];
        m_selected[n] = selected[order[n]];
    }
    IndexKeys();
    return order;
}

void ListItems::Clear()
{
    m_rows = decltype(m_rows)();
    m_selected = decltype(m_selected)();
    m_keys.Clear();
    m_texts.Clear();
    m_heads = decltype(m_heads)();
    m_headsByText.Clear();
    m_list.RowsCleared();
}

} // namespace platform

// SPDX-License-Identifier: MIT
#pragma once

#include "IndexTable.h"
#include "TextStore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class ListItems;
class ListView;

/// A row as its readers hold it. It stands for a place in the list, so it is good until rows before it go.
class ListItem
{
public:
    static constexpr std::size_t kMaxSubItems = 3;

    ListItem(ListItems& items, std::size_t nRow) : m_pItems(&items), m_nRow(nRow) {}

    /// The row's place in the list, counted from 1.
    [[nodiscard]] std::size_t Index() const { return m_nRow + 1; }

    [[nodiscard]] std::string Key() const;
    [[nodiscard]] std::string_view Text() const;

    /// The text of column `n` + 1, `n` from 1 to kMaxSubItems. Empty until it is set.
    [[nodiscard]] std::string_view SubItems(std::size_t n) const;
    void SetSubItems(std::size_t n, std::string_view New_Text);

    /// The number of the row's picture in the list's image list, counted from 1.
    [[nodiscard]] int SmallIcon() const;
    void SetSmallIcon(int New_SmallIcon);

    /// In a list of one selected row at a time, selecting a row takes the selection from the others and makes
    /// it the current one.
    [[nodiscard]] bool Selected() const;
    void SetSelected(bool New_Selected);

    /// Scrolls the list so that the row can be seen.
    void EnsureVisible();

private:
    ListItems* m_pItems;
    std::size_t m_nRow;
};

/// The rows of a list view, in about 60 bytes each besides their texts. What a row's `Key` has in front of
/// its `Text`, a file's folder, is kept once for all rows that share it.
class ListItems
{
public:
    explicit ListItems(ListView& list) : m_list(list) {}

    [[nodiscard]] std::size_t Count() const { return m_rows.size(); }

    /// Row `n`, counted from 1.
    [[nodiscard]] ListItem operator()(std::size_t n) { return {*this, n - 1}; }

    /// The place, counted from 1, of the row with that key.
    [[nodiscard]] std::optional<std::size_t> Find(std::string_view sKey);

    /// How many rows are selected.
    [[nodiscard]] std::size_t SelectedCount() const;

    /// Which rows are selected, a bit for each; and the same for all rows at once, of which the list's
    /// observer hears once. A list of one selected row at a time takes at most one.
    [[nodiscard]] const std::vector<bool>& Selection() const { return m_selected; }
    void SetSelection(std::vector<bool> New_Selection);

    /// Adds a row at the end, or in its place in a sorted list. Refused, with nothing added, if a row has
    /// that key already.
    std::optional<ListItem> Add(std::string_view sKey, std::string_view sText, int nSmallIcon);

    /// Removes row `n`, counted from 1.
    void Remove(std::size_t n);

    /// Removes all rows.
    void Clear();

private:
    friend class ListItem;
    friend class ListView;

    struct tRow {
        StoredText sHead; ///< `Key` up to `Text`; the whole of a `Key` that does not end in `Text`
        StoredText sText;
        std::array<StoredText, ListItem::kMaxSubItems> aSubItems;
        std::uint8_t nSmallIcon = 0;
        bool bKeyEndsInText = false;

        [[nodiscard]] std::string_view KeyTail() const
        {
            return bKeyEndsInText ? sText.View() : std::string_view();
        }
    };

    StoredText Head(std::string_view sHead);
    std::uint32_t* FindKey(std::string_view sKey, std::uint64_t nHash);
    void IndexKeys();

    /// Orders the rows by their texts; returns for each place the place its row had before.
    std::vector<std::size_t> Sort(bool bDescending);

    ListView& m_list;
    std::vector<tRow> m_rows;
    std::vector<bool> m_selected; ///< a bit for each row
    IndexTable m_keys;            ///< rows by their keys
    TextStore m_texts;
    std::vector<StoredText> m_heads; ///< each head once
    IndexTable m_headsByText;
};

} // namespace platform

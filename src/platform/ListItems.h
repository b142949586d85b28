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

/// A reference to a row. It refers to a position in the list, so it is valid until an earlier row is removed.
class ListItem
{
public:
    static constexpr std::size_t kMaxSubItems = 3;

    ListItem(ListItems& items, std::size_t nRow) : m_pItems(&items), m_nRow(nRow) {}

    /// The position of the row in the list, counted from 1.
    [[nodiscard]] std::size_t Index() const { return m_nRow + 1; }

    /// The unique key of the row, and the text of its first column.
    [[nodiscard]] std::string Key() const;
    [[nodiscard]] std::string_view Text() const;

    /// The text of column `n` + 1, with `n` from 1 to kMaxSubItems. Initially empty.
    [[nodiscard]] std::string_view SubItems(std::size_t n) const;
    void SetSubItems(std::size_t n, std::string_view New_Text);

    /// The row's picture in the list's image list, counted from 1.
    [[nodiscard]] int SmallIcon() const;
    void SetSmallIcon(int New_SmallIcon);

    /// In a single-selection list, selecting a row deselects the others and makes it the current row.
    [[nodiscard]] bool Selected() const;
    void SetSelected(bool New_Selected);

    /// Scrolls the list until the row is visible.
    void EnsureVisible();

private:
    ListItems* m_pItems;
    std::size_t m_nRow;
};

/// The rows of a list view, at about 60 bytes each plus their texts. The part of a row's `Key` before its
/// `Text`, the folder of a file, is stored once for all rows that share it.
class ListItems
{
public:
    explicit ListItems(ListView& list) : m_list(list) {}

    [[nodiscard]] std::size_t Count() const { return m_rows.size(); }

    /// Row `n`, counted from 1.
    [[nodiscard]] ListItem operator()(std::size_t n) { return {*this, n - 1}; }

    /// The position, counted from 1, of the row with that key.
    [[nodiscard]] std::optional<std::size_t> Find(std::string_view sKey);

    /// The number of selected rows.
    [[nodiscard]] std::size_t SelectedCount() const;

    /// The selection, one bit for each row. Setting it changes all rows at once with a single notification of
    /// the observer. A single-selection list accepts at most one row.
    [[nodiscard]] const std::vector<bool>& Selection() const { return m_selected; }
    void SetSelection(std::vector<bool> New_Selection);

    /// Adds a row at the end, or at its position in a sorted list. Does nothing and returns nothing if a row
    /// already has that key.
    std::optional<ListItem> Add(std::string_view sKey, std::string_view sText, int nSmallIcon);

    /// Removes row `n`, counted from 1.
    void Remove(std::size_t n);

    /// Removes all rows.
    void Clear();

private:
    friend class ListItem;
    friend class ListView;

    struct tRow {
        StoredText sHead; ///< `Key` up to `Text`; all of `Key` if it does not end in `Text`
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

    /// Sorts the rows by their texts. Returns for each new position the old position of its row.
    std::vector<std::size_t> Sort(bool bDescending);

    ListView& m_list;
    std::vector<tRow> m_rows;
    std::vector<bool> m_selected; ///< a bit for each row
    IndexTable m_keys;            ///< rows by their keys
    TextStore m_texts;
    std::vector<StoredText> m_heads; ///< each distinct head once
    IndexTable m_headsByText;
};

} // namespace platform

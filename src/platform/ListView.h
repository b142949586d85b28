// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "Form.h"
#include "ListItems.h"
#include "NativeWindow.h"
#include "Observable.h"
#include "Widgets.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace platform {

/// Where a text that is wider than its column is shortened.
enum class Ellipsis { AtEnd, InMiddle };

/// A column of a list view.
class ColumnHeader : public Observable
{
public:
    ColumnHeader(std::string sHeader, Alignment textAlignment, float width, Ellipsis textEllipsis)
        : sText(std::move(sHeader)), alignment(textAlignment), ellipsis(textEllipsis), m_width(width)
    {
    }

    const std::string sText;
    const Alignment alignment;
    const Ellipsis ellipsis;

    /// In twips. A negative width is refused: returns false and the width stays as it was.
    [[nodiscard]] float Width() const { return m_width; }
    bool SetWidth(float New_Width) { return ChangeSize(m_width, New_Width); }

private:
    float m_width;
};

/// Gets notified when the rows of a list view change, and by default does nothing. Rows are counted from 0
/// here.
class ListViewObserver
{
public:
    virtual ~ListViewObserver() = default;
    virtual void RowAdded(std::size_t /*nRow*/) {}
    virtual void RowChanged(std::size_t /*nRow*/) {} ///< its texts or its icon
    virtual void RowRemoved(std::size_t /*nRow*/) {}
    virtual void RowsCleared() {}
    virtual void RowsSorted() {}
    virtual void SelectionChanged() {}            ///< of any row, or of the current row
    virtual void ShowRow(std::size_t /*nRow*/) {} ///< the row is to be scrolled into view

    /// The row at a point of the list, in twips.
    virtual std::optional<std::size_t> RowAt(float /*x*/, float /*y*/) { return {}; }
};

/// A list of rows in columns. The selected rows and the current row, the one with the focus, are independent.
class ListView : public NativeWindow
{
public:
    static constexpr unsigned LVM_SETEXTENDEDLISTVIEWSTYLE = 4150;
    static constexpr unsigned LVM_GETEXTENDEDLISTVIEWSTYLE = 4151;
    static constexpr long LVS_EX_FULLROWSELECT = 32;

    explicit ListView(Form& form);

    MouseEvent MouseDown;
    MouseEvent MouseUp;
    std::function<void()> DblClick;
    std::function<void(int KeyCode, int Shift)> KeyUp;
    std::function<void()> ColumnClick;
    std::function<void()> MenuKey; ///< the menu key was pressed while the list had the focus

    class ListItems ListItems;

    /// Column `n`, counted from 1. Widths are in twips, and the only property that can change after the
    /// design.
    [[nodiscard]] ColumnHeader& ColumnHeaders(std::size_t n) { return m_columns.at(n - 1); }
    [[nodiscard]] std::size_t ColumnCount() const { return m_columns.size(); }
    void AddColumn(const std::string& sHeader, Alignment alignment, float width,
                   Ellipsis ellipsis = Ellipsis::AtEnd);

    bool MultiSelect = false; ///< several rows can be selected at once
    SystemColor BackColor = SystemColor::WindowBackground;

    /// The current row. The first row added to an empty list becomes current without being selected.
    [[nodiscard]] std::optional<ListItem> SelectedItem();
    void SetSelectedItem(std::size_t nRow); ///< counted from 0

    /// The row at a point of the list, in twips.
    [[nodiscard]] std::optional<ListItem> HitTest(float x, float y);

    /// From the next SetSorted(true) on, the rows are sorted by `Text`, and rows added later go to their
    /// sorted position.
    void SetSorted(bool New_Sorted);

    /// 0 for ascending, 1 for descending.
    [[nodiscard]] int SortOrder() const { return m_nSortOrder; }
    void SetSortOrder(int New_SortOrder) { m_nSortOrder = New_SortOrder; }

    /// True if a click anywhere in a row selects it; set by LVM_SETEXTENDEDLISTVIEWSTYLE.
    [[nodiscard]] bool FullRowSelect() const { return (m_nExtendedStyle & LVS_EX_FULLROWSELECT) != 0; }
    long Message(unsigned nMessage, long wParam, long lParam) override;

    /// Gives the list the keyboard focus; false if its form is disabled.
    bool SetFocus() { return m_form.SetFocus(*this); }

    /// The observer is not owned. It must outlive the list or be removed with null.
    void ObserveRows(ListViewObserver* pObserver);

private:
    friend class ListItem;
    friend class ListItems;

    std::size_t RowAdded(std::size_t nRow); ///< returns the final position of the row
    void SelectRow(std::size_t nRow, bool bSelected);
    void SelectionReplaced();
    std::size_t SortRows(std::size_t nFollowed);
    void RowRemoved(std::size_t nRow);
    void RowsCleared();

    Form& m_form;
    std::deque<ColumnHeader> m_columns;
    std::optional<std::size_t> m_nCurrent;
    bool m_bSorted = false;
    int m_nSortOrder = 0;
    long m_nExtendedStyle = 0;
    ListViewObserver* m_pRowObserver; ///< never null
};

} // namespace platform

#pragma once

#include "Control.h"
#include "ListItems.h"

#include <cstddef>
#include <optional>

namespace platform {

/// Whoever shows a list view and wants to hear of its rows.
class ListViewObserver
{
public:
    virtual ~ListViewObserver() = default;
    virtual void RowAdded(std::size_t nRow) = 0;   ///< counted from 0
    virtual void RowChanged(std::size_t nRow) = 0; ///< texts, picture or selection
    virtual void RowsCleared() = 0;
};

/// A list of rows in columns. Selected rows and the current row, the one with the focus, are two things.
class ListView : public Control
{
public:
    explicit ListView(Form& form) : ListItems(*this), m_form(form) {}

    class ListItems ListItems;

    /// The current row. The first row of an empty list becomes it, without being selected.
    [[nodiscard]] std::optional<ListItem> SelectedItem();

    /// Gives the list the keyboard focus; false if its form takes no input at the moment.
    bool SetFocus() { return m_form.SetFocus(*this); }

    /// The observer is not owned and must outlive the list or be taken off with null.
    void ObserveRows(ListViewObserver* pObserver) { m_pRowObserver = pObserver; }

private:
    friend class ListItem;
    friend class ListItems;

    void RowAdded(std::size_t nRow);
    void RowChanged(std::size_t nRow);
    void RowsCleared();

    Form& m_form;
    std::optional<std::size_t> m_nCurrent;
    ListViewObserver* m_pRowObserver = nullptr;
};

} // namespace platform

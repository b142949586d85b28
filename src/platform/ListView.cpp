#include "ListView.h"

namespace platform {

std::optional<ListItem> ListView::SelectedItem()
{
    if (!m_nCurrent) {
        return std::nullopt;
    }
    return ListItem(ListItems, *m_nCurrent);
}

void ListView::RowAdded(std::size_t nRow)
{
    if (!m_nCurrent) {
        m_nCurrent = nRow;
    }
    if (m_pRowObserver != nullptr) {
        m_pRowObserver->RowAdded(nRow);
    }
}

void ListView::RowChanged(std::size_t nRow)
{
    if (m_pRowObserver != nullptr) {
        m_pRowObserver->RowChanged(nRow);
    }
}

void ListView::RowsCleared()
{
    m_nCurrent.reset();
    if (m_pRowObserver != nullptr) {
        m_pRowObserver->RowsCleared();
    }
}

} // namespace platform

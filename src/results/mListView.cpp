// SPDX-License-Identifier: MIT
#include "mListView.h"

#include "WindowFunctions.h"
#include "cGroupRows.h"

namespace results {
namespace {

using platform::ListView;

/// Removes the first selected row. True if another selected row may follow.
bool RemoveFirstSelected(ListView& lv)
{
    const std::size_t nCount = lv.ListItems.Count();
    for (std::size_t n = 1; n <= nCount; ++n) {
        if (lv.ListItems(n).Selected()) {
            lv.ListItems.Remove(n);
            return n < nCount;
        }
    }
    return false;
}

} // namespace

void SetFullRowSelect(ListView& lv, bool bOn)
{
    const long nBefore = platform::SendMessageA(lv.hWnd(), ListView::LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
    const long nAfter =
        bOn ? nBefore | ListView::LVS_EX_FULLROWSELECT : nBefore & ~ListView::LVS_EX_FULLROWSELECT;
    platform::SendMessageA(lv.hWnd(), ListView::LVM_SETEXTENDEDLISTVIEWSTYLE, 0, nAfter);
}

std::string CurrentFolder(ListView& lv)
{
    const auto current = lv.SelectedItem();
    return current ? std::string(current->SubItems(search::kFolderColumn)) : std::string();
}

void SelectAllItems(ListView& lv)
{
    const std::size_t nCount = lv.ListItems.Count();
    for (std::size_t n = 1; n <= nCount; ++n) {
        lv.ListItems(n).SetSelected(true);
    }
}

void RemoveSelectedItems(ListView& lv)
{
    // Each scan starts over, since a removal moves the rows after it.
    while (RemoveFirstSelected(lv)) {
    }
    // So that the user always has a selection.
    if (auto current = lv.SelectedItem()) {
        current->SetSelected(true);
        current->EnsureVisible();
    }
}

} // namespace results

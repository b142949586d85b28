// SPDX-License-Identifier: MIT
#include "mSelect.h"

#include "GroupMarks.h"
#include "WindowFunctions.h"
#include "cGroupRows.h"
#include "mFileInfo.h"
#include "mListView.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace results {
namespace {

using platform::ListItem;
using platform::ListView;

/// Applies `rule` to each row, with painting suspended.
template <typename Rule>
void ForEachRow(ListView& lv, const Rule& rule)
{
    platform::LockWindowUpdate(lv.hWnd());
    const std::size_t nCount = lv.ListItems.Count();
    for (std::size_t n = 1; n <= nCount; ++n) {
        rule(lv.ListItems(n));
    }
    platform::LockWindowUpdate(nullptr);
}

/// Selects the rows for which `rule` holds, and no others.
template <typename Rule>
void SelectOnly(ListView& lv, const Rule& rule)
{
    if (lv.ListItems.Count() == 0) {
        return;
    }
    lv.SetFocus();
    SelectNone(lv);
    ForEachRow(lv, [&rule](ListItem row) {
        if (rule(row)) {
            row.SetSelected(true);
        }
    });
}

/// Sets the selection of each row to the result of `rule`.
template <typename Rule>
void RewriteSelection(ListView& lv, const Rule& rule)
{
    if (lv.ListItems.Count() == 0) {
        return;
    }
    lv.SetFocus();
    ForEachRow(lv, [&rule](ListItem row) { row.SetSelected(rule(row)); });
}

/// Looks up the drives of folders, once for each folder, since thousands of rows share one.
class Drives
{
public:
    const std::string& Of(std::string_view sFolder)
    {
        if (m_pLast == nullptr || m_pLast->first != sFolder) {
            const auto entry = m_drives.try_emplace(std::string(sFolder));
            if (entry.second) {
                entry.first->second = DriveOf(entry.first->first);
            }
            m_pLast = &*entry.first;
        }
        return m_pLast->second;
    }

private:
    using Map = std::unordered_map<std::string, std::string>;
    Map m_drives;
    const Map::value_type* m_pLast = nullptr;
};

} // namespace

void SelectDuplicatedFiles(ListView& lv)
{
    SelectOnly(lv, [](const ListItem& row) { return row.SmallIcon() != platform::kMarkFirst; });
}

void SelectEmptyFiles(ListView& lv)
{
    SelectOnly(lv, [](const ListItem& row) { return row.SubItems(search::kSizeColumn) == "0"; });
}

void SelectSameDrive(ListView& lv)
{
    Drives drives;
    const std::string sDrive = drives.Of(CurrentFolder(lv));
    RewriteSelection(lv, [&](const ListItem& row) {
        return !sDrive.empty() && drives.Of(row.SubItems(search::kFolderColumn)) == sDrive;
    });
}

void SelectSamePath(ListView& lv)
{
    const std::string sFolder = CurrentFolder(lv);
    RewriteSelection(lv, [&](const ListItem& row) { return row.SubItems(search::kFolderColumn) == sFolder; });
}

void SelectAll(ListView& lv)
{
    RewriteSelection(lv, [](const ListItem& /*row*/) { return true; });
}

void SelectInvert(ListView& lv)
{
    RewriteSelection(lv, [](const ListItem& row) { return !row.Selected(); });
}

void SelectNone(ListView& lv)
{
    RewriteSelection(lv, [](const ListItem& /*row*/) { return false; });
}

} // namespace results

// SPDX-License-Identifier: MIT
#include "cGroupRows.h"

#include "FormMembers.h"
#include "GroupMarks.h"
#include "Texts.h"

namespace search {

void cGroupRows::OpenGroup(const tFileEntry& entry)
{
    CloseGroup();
    AddRow(entry, platform::kMarkFirst);
}

void cGroupRows::CloseGroup()
{
    if (m_oItem) {
        m_oItem->SetSmallIcon(platform::kMarkLast);
    }
}

bool cGroupRows::AddRow(const tFileEntry& entry, int nMark)
{
    auto item = frmMain().lvFiles.ListItems.Add(entry.FullPath(), entry.sName.View(), nMark);
    if (!item) {
        return false;
    }
    m_oItem = item;
    item->SetSubItems(kSizeColumn, platform::FormatNumber(entry.cySize));
    item->SetSubItems(kDateColumn, platform::FormatDateTime(entry.dtDate));
    item->SetSubItems(kFolderColumn, entry.sPath.View());
    return true;
}

} // namespace search

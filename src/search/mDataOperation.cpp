#include "mDataOperation.h"

#include "FormMembers.h"
#include "System.h"
#include "cGroupRows.h"
#include "cPairIndex.h"
#include "cReadAhead.h"
#include "mCommon.h"
#include "mCompactPath.h"
#include "mFindALLFiles.h"

#include <optional>

namespace search {
namespace {

tFileEntry& Entry(std::int32_t n)
{
    return FileList[static_cast<std::size_t>(n)];
}

/// Yields for `nSteps` steps; true if the search is to stop.
bool StoppedAfterYield(std::int64_t nSteps = 1)
{
    platform::DoEvents(nSteps);
    return bStopped;
}

/// The first half of a search, up to the comparison; false if there is nothing to search.
bool ScanFolders()
{
    auto& folders = frmMain().lvFolders.ListItems;
    auto& progress = frmProgress();
    // 1. No folders, no search.
    if (folders.Count() == 0) {
        platform::Messages().Show("Please add at least one folder.", platform::MessageIcon::Exclamation);
        return false;
    }
    // 2. to 5. From idle to working, with the pointer of an idle program: Cancel is to be clicked.
    progress.Show();
    SetWorking(true);
    ClearResults();
    platform::TheScreen().SetMousePointer(platform::MousePointer::Default);
    // 6. and 7. Scan. A stop is not looked for here: the walk notices it at its first entry.
    progress.lblStatus.SetCaption("Scanning...");
    progress.lblFolder.SetCaption(frmMain().sSelectedFolder());
    progress.Refresh();
    for (std::size_t n = 1; n <= folders.Count(); ++n) {
        FindAllFiles(std::string(folders(n).Text()));
    }
    // 8. Ready to compare.
    progress.pbProgress().SetValue(0);
    progress.pbProgress().SetMax(static_cast<float>(FileCount));
    progress.lblStatus.SetCaption("Comparing...");
    return true;
}

/// The end of a search, cancelled or not.
void EndSearch()
{
    frmMain().StatusBar1.Panels(2).SetText(std::to_string(frmMain().lvFiles.ListItems.Count()));
    SetWorking(false);
    platform::Files().SearchEnded();
    frmProgress().Unload();
}

/// The comparison of all entries of FileList in one of the two ways.
class cComparison
{
public:
    explicit cComparison(PairKey key) : m_bContent(key == PairKey::Size)
    {
        // After a cancel in the scan the comparison ends at its first step.
        if (bStopped) {
            return;
        }
        m_index.emplace(key);
        if (m_bContent) {
            m_readAhead.emplace(*m_index);
        }
    }

    /// Lists every group, unless the search is stopped before.
    void Run()
    {
        for (std::int32_t i = 0; i < FileCount; ++i) {
            // 1. to 4. Yield, and move the bar; entries that are done get no further.
            if (StoppedAfterYield()) {
                return;
            }
            frmProgress().pbProgress().SetValue(static_cast<float>(i));
            if (Entry(i).bDone) {
                continue;
            }
            if (StoppedAfterYield()) {
                return;
            }
            // 5. Show what is being compared.
            Show(Entry(i));
            // 6. and 7. Compare it with all later entries.
            PassOver(i);
        }
    }

    cGroupRows rows;

private:
    void Show(const tFileEntry& entry)
    {
        // Neighbours in the table mostly share their folder.
        if (!entry.sPath.SameAs(m_sShownPath)) {
            m_sShownPath = entry.sPath;
            frmProgress().lblFolder.SetCaption(LabelText(entry.sPath.View()));
        }
        frmProgress().lblFile.SetCaption(entry.sName.View());
    }

    void PassOver(std::int32_t i)
    {
        const bool bNotYetRead = Entry(i).sCRC.empty();
        bool bFound = false;
        std::int32_t nLast = i;
        cPairIndex::tPass pass = m_index->Start(i);
        while (const auto candidate = m_index->Next(pass)) {
            const std::int32_t j = candidate->j;
            // 1. Yield for this pair and for those passed over, which could come to nothing.
            if (StoppedAfterYield(j - nLast)) {
                return;
            }
            nLast = j;
            // 2. and 3. The same file reached twice is no duplicate of itself.
            if (candidate->bSamePath) {
                Entry(j).bDone = true;
            }
            if (Entry(j).bDone) {
                continue;
            }
            // 4. to 6. Equal in what the search asks for?
            if (!candidate->bSameKey || (m_bContent && !SameChecksum(i, j))) {
                continue;
            }
            // 7. The first match opens a group with entry i.
            if (!bFound) {
                rows.OpenGroup(Entry(i));
                Entry(i).bDone = true;
            }
            // 8. Entry j joins it.
            bFound = rows.Add(Entry(j)) || bFound;
            Entry(j).bDone = true;
        }
        if (FileCount - 1 > nLast && StoppedAfterYield(FileCount - 1 - nLast)) {
            return;
        }
        // Now that all files of this size have been read, the later passes need not look at all of them.
        if (m_bContent && bNotYetRead && !Entry(i).sCRC.empty()) {
            m_index->SplitByChecksum(i);
        }
    }

    bool SameChecksum(std::int32_t i, std::int32_t j)
    {
        FillChecksum(i);
        FillChecksum(j);
        return Entry(i).sCRC == Entry(j).sCRC;
    }

    void FillChecksum(std::int32_t n)
    {
        tFileEntry& entry = Entry(n);
        if (!entry.sCRC.empty()) {
            return;
        }
        const auto checksum =
            oCRC().CalculateFiles(entry.FullPath(), static_cast<std::int32_t>(entry.cySize));
        const auto* pNumber = std::get_if<std::int32_t>(&checksum);
        entry.sCRC = tChecksumText(pNumber != nullptr ? static_cast<std::uint32_t>(*pNumber) : 0);
        m_readAhead->FileRead(n, oCRC().LastReadWaited());
    }

    bool m_bContent;
    std::optional<cPairIndex> m_index;
    std::optional<cReadAhead> m_readAhead;
    platform::StoredText m_sShownPath; ///< the folder on the label; none at the start
};

} // namespace

void mnuSearchFind_Click()
{
    if (frmMain().mnuOptionsSearchContent.Checked()) {
        FindDuplicatesByContent();
    } else {
        FindDuplicatesByName();
    }
}

void FindDuplicatesByName()
{
    if (!ScanFolders()) {
        return;
    }
    // 9. to 11. Compare, then close the last group.
    const bool bNameSize = frmMain().mnuOptionsSearchNameSize.Checked();
    frmMain().RowsComparedBy = bNameSize ? platform::ComparedBy::NameAndSize : platform::ComparedBy::Name;
    cComparison comparison(bNameSize ? PairKey::NameAndSize : PairKey::Name);
    comparison.Run();
    comparison.rows.CloseGroup();
    // 12. The list gets the focus, if its form may have it by now, and its current row is selected.
    auto& list = frmMain().lvFiles;
    static_cast<void>(list.SetFocus());
    if (auto item = list.SelectedItem()) {
        item->SetSelected(true);
    }
    // 13. to 15. From working to idle.
    EndSearch();
}

void FindDuplicatesByContent()
{
    if (!ScanFolders()) {
        return;
    }
    frmMain().RowsComparedBy = platform::ComparedBy::Content;
    cComparison comparison(PairKey::Size);
    comparison.Run();
    comparison.rows.CloseGroup();
    oCRC().ReleaseBuffer();
    EndSearch();
}

cCRC& oCRC()
{
    static cCRC engine;
    return engine;
}

} // namespace search

// SPDX-License-Identifier: MIT
#include "mDataOperation.h"

#include "FormMembers.h"
#include "System.h"
#include "cGroupRows.h"
#include "cPairIndex.h"
#include "mCommon.h"
#include "mCompactPath.h"
#include "mFindALLFiles.h"

#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

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

/// From idle to working; false if there is nothing to search.
bool BeginSearch()
{
    if (frmMain().lvFolders.ListItems.Count() == 0) {
        platform::Messages().Show("Please add at least one folder.", platform::MessageIcon::Exclamation);
        return false;
    }
    auto& progress = frmProgress();
    progress.Show();
    SetWorking(true);
    ClearResults();
    // With the pointer of an idle program: Cancel is to be clicked.
    platform::TheScreen().SetMousePointer(platform::MousePointer::Default);
    progress.lblStatus.SetCaption("Scanning...");
    progress.lblFolder.SetCaption(frmMain().sSelectedFolder());
    progress.Refresh();
    return true;
}

/// Begins the reading of the folders of lvFolders.
std::unique_ptr<platform::SearchReading> BeginReading()
{
    platform::tSearchedFolders searched;
    auto& folders = frmMain().lvFolders.ListItems;
    for (std::size_t n = 1; n <= folders.Count(); ++n) {
        searched.folders.emplace_back(folders(n).Text());
    }
    searched.bHidden = frmMain().mnuOptionsHidden.Checked();
    searched.nMaxSubfolders = kMaxSubfolders;
    return platform::Files().BeginReading(searched);
}

/// The first half of a search, up to the comparison. A stop is not looked for here: the walk notices it.
void ScanFolders(platform::SearchReading& reading)
{
    auto& folders = frmMain().lvFolders.ListItems;
    for (std::size_t n = 1; n <= folders.Count(); ++n) {
        FindAllFiles(std::string(folders(n).Text()), reading);
    }
    auto& progress = frmProgress();
    progress.pbProgress().SetValue(0);
    progress.pbProgress().SetMax(static_cast<float>(FileCount));
    progress.lblStatus.SetCaption("Comparing...");
}

/// The end of a search, cancelled or not. One that memory ran out for is not to be taken for a whole one.
void EndSearch(bool bWhole)
{
    frmMain().StatusBar1.Panels(2).SetText(std::to_string(frmMain().lvFiles.ListItems.Count()));
    SetWorking(false);
    frmProgress().Unload();
    if (!bWhole) {
        platform::Messages().Show("There is not enough memory to search all of these folders. The list shows "
                                  "what had been found by then.",
                                  platform::MessageIcon::Exclamation);
    }
}

/// How an entry is read, by whoever reads it.
platform::tFileToRead FileAt(std::uint32_t n)
{
    const tFileEntry& entry = FileList[n];
    return {entry.sPath.View(), entry.sName.View(), entry.cySize};
}

/// The comparison of all entries of FileList in one of the two ways.
class cComparison
{
public:
    cComparison(PairKey key, platform::SearchReading& reading, cGroupRows& rows)
        : m_bContent(key == PairKey::Size), m_reading(reading), m_rows(rows)
    {
        // After a cancel in the scan the comparison ends at its first step.
        if (bStopped) {
            return;
        }
        m_index.emplace(key);
        if (m_bContent) {
            m_reading.ReadFiles({static_cast<std::uint32_t>(FileCount), m_index->EntriesToRead(), FileAt,
                                 oCRC().SumOfBytes()});
        }
    }

    /// Lists every group, unless the search is stopped before.
    void Run()
    {
        for (std::int32_t i = 0; i < FileCount; ++i) {
            // Yield, and move the bar; entries that are done get no further.
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
            Show(Entry(i));
            PassOver(i);
        }
    }

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

    /// Compares entry `i` with all later ones.
    void PassOver(std::int32_t i)
    {
        const bool bNotYetRead = Entry(i).sCRC.empty();
        bool bFound = false;
        std::int32_t nLast = i;
        cPairIndex::tPass pass = m_index->Start(i);
        while (const auto candidate = m_index->Next(pass)) {
            const std::int32_t j = candidate->j;
            // Files of one size lie far apart in the table: having the next one fetched by now takes a
            // twentieth off the search of a million files.
            if (pass.nKey != cPairIndex::kNone) {
                __builtin_prefetch(&FileList[pass.nKey].bDone);
            }
            // For this pair and for those passed over, which could come to nothing.
            if (StoppedAfterYield(j - nLast)) {
                return;
            }
            nLast = j;
            // The same file reached twice is no duplicate of itself.
            if (candidate->bSamePath) {
                Entry(j).bDone = true;
            }
            if (Entry(j).bDone || !candidate->bSameKey) {
                continue;
            }
            if (m_bContent) {
                if (!Awaited(i, j, pass)) {
                    return;
                }
                if (Entry(i).sCRC != Entry(j).sCRC) {
                    continue;
                }
            }
            // The first match opens a group with entry i; entry j joins it.
            if (!bFound) {
                m_rows.OpenGroup(Entry(i));
                Entry(i).bDone = true;
            }
            bFound = m_rows.Add(Entry(j)) || bFound;
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

    /// Fills the checksums of both entries; false if the search is stopped before they are known, and then
    /// neither is filled. `pass` is where the pass of entry `i` goes on.
    bool Awaited(std::int32_t i, std::int32_t j, const cPairIndex::tPass& pass)
    {
        std::optional<std::int32_t> nSumOfI;
        std::optional<std::int32_t> nSumOfJ;
        const bool bKnown = (!Entry(i).sCRC.empty() || Await(i, i, j, pass, nSumOfI)) &&
                            (!Entry(j).sCRC.empty() || Await(i, j, j, pass, nSumOfJ));
        if (bKnown) {
            FillChecksum(Entry(i), nSumOfI);
            FillChecksum(Entry(j), nSumOfJ);
        }
        return bKnown;
    }

    /// Asks for entry `n` while entry `i` is compared with `j`, until the answer is there or a stop.
    bool Await(std::int32_t i, std::int32_t n, std::int32_t j, const cPairIndex::tPass& pass,
               std::optional<std::int32_t>& nSum)
    {
        for (;;) {
            std::int32_t nNumber = 0;
            switch (m_reading.AskFor(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(n), nNumber)) {
            case platform::Answer::Ready:
                nSum = nNumber;
                return true;
            case platform::Answer::Failed:
                return true;
            case platform::Answer::Stuck:
                m_reading.ReadFirst(NextOfPass(i, j, pass));
                break;
            case platform::Answer::NotYet:
                break;
            }
            if (StoppedAfterYield(0)) {
                return false;
            }
        }
    }

    /// The entries that the pass of entry `i` needs next, from its pair with `j` on, as far as is worth it.
    [[nodiscard]] std::vector<std::uint32_t> NextOfPass(std::int32_t i, std::int32_t j,
                                                        cPairIndex::tPass pass) const
    {
        constexpr std::size_t kMost = 4'096;
        std::vector<std::uint32_t> entries;
        const auto addUnread = [&](std::int32_t n) {
            if (Entry(n).sCRC.empty()) {
                entries.push_back(static_cast<std::uint32_t>(n));
            }
        };
        addUnread(i);
        addUnread(j);
        while (entries.size() < kMost) {
            const auto candidate = m_index->Next(pass);
            if (!candidate) {
                break;
            }
            if (candidate->bSameKey && !candidate->bSamePath && !Entry(candidate->j).bDone) {
                addUnread(candidate->j);
            }
        }
        return entries;
    }

    static void FillChecksum(tFileEntry& entry, std::optional<std::int32_t> nSum)
    {
        if (!entry.sCRC.empty()) {
            return;
        }
        const auto checksum = oCRC().CalculateFiles(nSum);
        const auto* pNumber = std::get_if<std::int32_t>(&checksum);
        entry.sCRC = tChecksumText(pNumber != nullptr ? static_cast<std::uint32_t>(*pNumber) : 0);
    }

    bool m_bContent;
    platform::SearchReading& m_reading;
    cGroupRows& m_rows;
    std::optional<cPairIndex> m_index;
    platform::StoredText m_sShownPath; ///< the folder on the label; none at the start
};

/// Scans and compares, by the key that `keyOf` names once the scan is over. False if memory has run out.
template <typename KeyOf>
bool Search(KeyOf keyOf)
{
    cGroupRows rows;
    bool bWhole = true;
    try {
        const auto reading = BeginReading();
        ScanFolders(*reading);
        cComparison(keyOf(), *reading, rows).Run();
    } catch (const std::bad_alloc&) {
        // What has been found so far stays. The table, which is of no more use, makes room for what follows.
        FileCount = 0;
        FileList.Clear();
        bWhole = false;
    }
    rows.CloseGroup();
    return bWhole;
}

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
    if (!BeginSearch()) {
        return;
    }
    const bool bWhole = Search([] {
        const bool bNameSize = frmMain().mnuOptionsSearchNameSize.Checked();
        frmMain().RowsComparedBy = bNameSize ? platform::ComparedBy::NameAndSize : platform::ComparedBy::Name;
        return bNameSize ? PairKey::NameAndSize : PairKey::Name;
    });
    // The list gets the focus, if its form may have it by now, and its current row is selected.
    auto& list = frmMain().lvFiles;
    static_cast<void>(list.SetFocus());
    if (auto item = list.SelectedItem()) {
        item->SetSelected(true);
    }
    EndSearch(bWhole);
}

void FindDuplicatesByContent()
{
    if (!BeginSearch()) {
        return;
    }
    frmMain().RowsComparedBy = platform::ComparedBy::Content;
    EndSearch(Search([] { return PairKey::Size; }));
}

cCRC& oCRC()
{
    static cCRC engine;
    return engine;
}

} // namespace search

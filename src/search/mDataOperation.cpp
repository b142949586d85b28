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
#include <vector>

namespace search {
namespace {

tFileEntry& Entry(std::int32_t n)
{
    return FileList[static_cast<std::size_t>(n)];
}

/// Switches from idle to working; false if there is nothing to search.
bool BeginSearch()
{
    if (frmMain().lvFolders.ListItems.Count() == 0) {
        platform::System().messages->Show("Please add at least one folder.",
                                          platform::MessageIcon::Exclamation);
        return false;
    }
    auto& progress = frmProgress();
    progress.Show();
    SetWorking(true);
    ClearResults();
    // The normal pointer, although the program is busy, since Cancel can be clicked.
    platform::System().screen->SetMousePointer(platform::MousePointer::Default);
    progress.lblStatus.SetCaption("Scanning...");
    progress.lblFolder.SetCaption(frmMain().sSelectedFolder());
    progress.Refresh();
    return true;
}

/// Starts the reading of the folders in lvFolders.
std::unique_ptr<platform::SearchReading> BeginReading()
{
    platform::tSearchedFolders searched;
    auto& folders = frmMain().lvFolders.ListItems;
    for (std::size_t n = 1; n <= folders.Count(); ++n) {
        searched.folders.emplace_back(folders(n).Text());
    }
    searched.bHidden = frmMain().mnuOptionsHidden.Checked();
    searched.nMaxSubfolders = kMaxSubfolders;
    return platform::System().files->BeginReading(searched);
}

/// The first half of a search, up to the comparison. It need not check for a stop: the walk does.
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

/// Ends a search, cancelled or not. Tells the user if `bWhole` is false because memory ran out.
void EndSearch(bool bWhole)
{
    frmMain().StatusBar1.Panels(2).SetText(std::to_string(frmMain().lvFiles.ListItems.Count()));
    SetWorking(false);
    frmProgress().Unload();
    if (!bWhole) {
        platform::System().messages->Show(
            "There is not enough memory to search all of these folders. The list shows "
            "what had been found by then.",
            platform::MessageIcon::Exclamation);
    }
}

/// How to read entry `n`; called by the reading threads.
platform::tFileToRead FileAt(std::uint32_t n)
{
    const tFileEntry& entry = FileList[n];
    return {entry.sPath.View(), entry.sName.View(), entry.cySize};
}

/// Compares all entries of FileList, in one of the two ways.
class cComparison
{
public:
    cComparison(PairKey key, platform::SearchReading& reading, cGroupRows& rows)
        : m_bContent(key == PairKey::Size), m_reading(reading), m_rows(rows)
    {
        // After a cancel during the scan, the comparison ends at its first step.
        if (bStopped) {
            return;
        }
        m_index.emplace(key);
        if (m_bContent) {
            m_reading.ReadFiles({static_cast<std::uint32_t>(FileCount), m_index->EntriesToRead(), FileAt,
                                 oCRC().SumOfBytes()});
        }
    }

    /// Lists every group, unless the search is stopped first.
    void Run()
    {
        for (std::int32_t i = 0; i < FileCount; ++i) {
            // Even entries that are done yield and move the bar.
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
        // Neighbours in the table usually share their folder.
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
            // Files of the same size are far apart in the table. Prefetching the next one makes the search of
            // a million files five percent faster.
            if (pass.nKey != cPairIndex::kNone) {
                __builtin_prefetch(&FileList[pass.nKey].bDone);
            }
            // For this pair and for the skipped ones, which could not match.
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
        // All files of this size have been read now, so later passes need to look only at those with the same
        // checksum.
        if (m_bContent && bNotYetRead && !Entry(i).sCRC.empty()) {
            m_index->SplitByChecksum(i);
        }
    }

    /// Sets the checksums of both entries. False if the search is stopped before both are known; then neither
    /// is set. `pass` is where the pass of entry `i` continues.
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

    /// Asks for entry `n`, while comparing entry `i` with `j`, until it is answered or the search is stopped.
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

    /// The entries that the pass of entry `i` needs next, starting with its pair with `j`, up to a useful
    /// number.
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
    platform::StoredText m_sShownPath; ///< the folder shown on the label; initially empty
};

/// Scans and compares, by the key that `keyOf` returns after the scan. False if memory ran out.
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
        // The rows found so far stay. The table is no longer needed; its memory is freed.
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
    // The list gets the focus, if its form is enabled by now, and its current row is selected.
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

#include "LiteralSearch.h"

#include "Texts.h"
#include "cCRC.h"
#include "mFindALLFiles.h"
#include "mTextCompare.h"

#include <algorithm>
#include <cstdio>

namespace support {

std::vector<LiteralSearch::tEntry> TableOfProgram()
{
    std::vector<LiteralSearch::tEntry> table;
    for (std::size_t n = 0; n < static_cast<std::size_t>(search::FileCount); ++n) {
        const auto& entry = search::FileList[n];
        table.push_back({std::string(entry.sName.View()), std::string(entry.sPath.View()), entry.cySize,
                         entry.dtDate, std::string(entry.sCRC.View()), entry.bDone});
    }
    return table;
}

LiteralSearch::LiteralSearch(ScriptedSearch& world, Mode mode) : m_mode(mode)
{
    search::ClearResults();
    for (std::size_t n = 1; n <= world.lvFolders.ListItems.Count(); ++n) {
        search::FindAllFiles(std::string(world.lvFolders.ListItems(n).Text()));
    }
    table = TableOfProgram();
    Run();
    if (m_nItem >= 0) {
        rows[static_cast<std::size_t>(m_nItem)].nMark = 4;
    }
}

bool LiteralSearch::StoppedAfterYield()
{
    platform::DoEvents();
    return search::bStopped;
}

void LiteralSearch::Run()
{
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (StoppedAfterYield()) {
            return;
        }
        if (table[i].bDone) {
            continue;
        }
        if (StoppedAfterYield()) {
            return;
        }
        nPairsEntry = static_cast<std::int64_t>(i) + 1;
        PassOver(i);
    }
}

void LiteralSearch::PassOver(std::size_t i)
{
    int nFound = 0;
    for (std::size_t j = i + 1; j < table.size(); ++j) {
        if (StoppedAfterYield()) {
            return;
        }
        tEntry& left = table[i];
        tEntry& right = table[j];
        if (search::TextEqual(left.sPath + left.sName, right.sPath + right.sName)) {
            right.bDone = true;
        }
        if (right.bDone || !Match(left, right)) {
            continue;
        }
        if (nFound == 0) {
            if (m_nItem >= 0) {
                rows[static_cast<std::size_t>(m_nItem)].nMark = 4;
            }
            AddRow(left, 2);
            left.bDone = true;
        }
        if (AddRow(right, 3)) {
            nFound = 1;
        }
        right.bDone = true;
    }
}

bool LiteralSearch::Match(tEntry& left, tEntry& right)
{
    if (m_mode != Mode::Content) {
        return search::TextEqual(left.sName, right.sName) &&
               (m_mode == Mode::Name || left.cySize == right.cySize);
    }
    if (left.cySize != right.cySize) {
        return false;
    }
    FillChecksum(left);
    FillChecksum(right);
    return left.sCRC == right.sCRC;
}

void LiteralSearch::FillChecksum(tEntry& entry)
{
    if (!entry.sCRC.empty()) {
        return;
    }
    search::cCRC engine;
    const auto checksum =
        engine.CalculateFiles(entry.sPath + entry.sName, static_cast<std::int32_t>(entry.cySize));
    const auto* pNumber = std::get_if<std::int32_t>(&checksum);
    char aDigits[16];
    std::snprintf(aDigits, sizeof aDigits, "%X", pNumber == nullptr ? 0U : static_cast<unsigned>(*pNumber));
    entry.sCRC = aDigits;
}

bool LiteralSearch::AddRow(const tEntry& entry, int nMark)
{
    const std::string sKey = entry.sPath + entry.sName;
    if (std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.sKey == sKey; })) {
        return false;
    }
    m_nItem = static_cast<long>(rows.size());
    rows.push_back({nMark, sKey, entry.sName, platform::FormatNumber(entry.cySize),
                    platform::FormatDateTime(entry.dtDate), entry.sPath});
    return true;
}

} // namespace support

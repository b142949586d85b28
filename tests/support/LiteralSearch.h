// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptedSearch.h"
#include "Texts.h"
#include "cCRC.h"
#include "cPairIndex.h"
#include "mFindALLFiles.h"
#include "mTextCompare.h"

#include <cstdint>
#include <cstdio>
#include <set>

namespace support {

/// The comparison as it is defined: each entry with each later one, pair by pair, with no index. What the
/// program's own way of doing it must not differ from.
class LiteralSearch
{
public:
    struct tEntry {
        std::string sName, sPath;
        std::int64_t cySize;
        double dtDate;
        std::string sCRC;
        bool bDone;
        bool operator==(const tEntry&) const = default;
    };

    /// Scans the folders of `world` as the program does, then compares.
    LiteralSearch(ScriptedSearch& world, search::PairKey key) : m_key(key)
    {
        search::ClearResults();
        const auto reading = platform::System().files->BeginReading({});
        for (std::size_t n = 1; n <= world.lvFolders.ListItems.Count(); ++n) {
            search::FindAllFiles(std::string(world.lvFolders.ListItems(n).Text()), *reading);
        }
        table = TableOfProgram();
        for (std::size_t i = 0; i < table.size() && !StoppedAfterYield(); ++i) {
            if (table[i].bDone) {
                continue;
            }
            if (StoppedAfterYield()) {
                break;
            }
            sLabels = "Comparing...|" + table[i].sPath + "|" + table[i].sName;
            PassOver(i);
        }
        CloseGroup();
    }

    /// FileList as the program left it, in the same form.
    static std::vector<tEntry> TableOfProgram()
    {
        std::vector<tEntry> entries;
        for (std::size_t n = 0; n < static_cast<std::size_t>(search::FileCount); ++n) {
            const auto& entry = search::FileList[n];
            entries.push_back({std::string(entry.sName.View()), std::string(entry.sPath.View()), entry.cySize,
                               entry.dtDate, std::string(entry.sCRC.View()), entry.bDone});
        }
        return entries;
    }

    std::vector<tEntry> table;
    std::vector<std::string> rows; ///< as ScriptedSearch::Rows gives them
    std::string sLabels;           ///< what is shown at the end; empty if nothing was compared

private:
    static bool SameText(const std::string& sLeft, const std::string& sRight)
    {
        std::string sLeftFolded, sRightFolded;
        search::FoldText(sLeft, sLeftFolded);
        search::FoldText(sRight, sRightFolded);
        return sLeftFolded == sRightFolded;
    }

    static bool StoppedAfterYield()
    {
        platform::DoEvents();
        return search::bStopped;
    }

    void PassOver(std::size_t i)
    {
        tEntry& left = table[i];
        bool bFound = false;
        for (std::size_t j = i + 1; j < table.size(); ++j) {
            if (StoppedAfterYield()) {
                return;
            }
            tEntry& right = table[j];
            if (SameText(left.sPath + left.sName, right.sPath + right.sName)) {
                right.bDone = true;
            }
            if (right.bDone || !Match(left, right)) {
                continue;
            }
            if (!bFound) {
                CloseGroup();
                AddRow(left, '2');
                left.bDone = true;
            }
            bFound = AddRow(right, '3') || bFound;
            right.bDone = true;
        }
    }

    [[nodiscard]] bool Match(tEntry& left, tEntry& right) const
    {
        if (m_key != search::PairKey::Size) {
            return SameText(left.sName, right.sName) &&
                   (m_key == search::PairKey::Name || left.cySize == right.cySize);
        }
        if (left.cySize != right.cySize) {
            return false;
        }
        FillChecksum(left);
        FillChecksum(right);
        return left.sCRC == right.sCRC;
    }

    static void FillChecksum(tEntry& entry)
    {
        if (!entry.sCRC.empty()) {
            return;
        }
        const auto nSize = static_cast<std::int32_t>(entry.cySize);
        const auto checksum = search::cCRC().CalculateFiles(entry.sPath + entry.sName, nSize);
        const auto* pNumber = std::get_if<std::int32_t>(&checksum);
        char aDigits[16];
        std::snprintf(aDigits, sizeof aDigits, "%X", pNumber ? static_cast<unsigned>(*pNumber) : 0U);
        entry.sCRC = aDigits;
    }

    bool AddRow(const tEntry& entry, char cMark)
    {
        const std::string sKey = entry.sPath + entry.sName;
        if (!m_listed.insert(sKey).second) {
            return false;
        }
        rows.push_back(cMark + (" " + sKey) + "|" + entry.sName + "|" + platform::FormatNumber(entry.cySize) +
                       "|" + platform::FormatDateTime(entry.dtDate) + "|" + entry.sPath);
        return true;
    }

    void CloseGroup()
    {
        if (!rows.empty()) {
            rows.back()[0] = '4';
        }
    }

    search::PairKey m_key;
    std::set<std::string> m_listed;
};

} // namespace support

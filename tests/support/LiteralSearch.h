#pragma once

#include "ScriptedSearch.h"

#include <string>
#include <vector>

namespace support {

/// The comparison as it is defined: each entry with each later one, pair by pair, with no index. What the
/// program's own way of doing it must not differ from.
class LiteralSearch
{
public:
    enum class Mode { Content, Name, NameAndSize };

    struct tEntry {
        std::string sName, sPath;
        std::int64_t cySize = 0;
        double dtDate = 0;
        std::string sCRC;
        bool bDone = false;
        bool operator==(const tEntry&) const = default;
    };

    /// Scans the folders of `world` as the program does, then compares.
    LiteralSearch(ScriptedSearch& world, Mode mode);

    std::vector<tEntry> table;
    std::vector<ScriptedSearch::tRow> rows;
    std::int64_t nPairsEntry = 0; ///< the last entry that got as far as being shown, counted from 1

private:
    bool StoppedAfterYield();
    void Run();
    void PassOver(std::size_t i);
    bool Match(tEntry& left, tEntry& right);
    void FillChecksum(tEntry& entry);
    bool AddRow(const tEntry& entry, int nMark);

    Mode m_mode;
    long m_nItem = -1; ///< the row last added
};

/// FileList as the program left it, in the same form.
std::vector<LiteralSearch::tEntry> TableOfProgram();

} // namespace support

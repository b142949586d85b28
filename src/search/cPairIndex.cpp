// SPDX-License-Identifier: MIT
#include "cPairIndex.h"

#include "IndexTable.h"
#include "System.h"
#include "Utf8.h"
#include "cTextClasses.h"
#include "mCommon.h"
#include "mTextCompare.h"

#include <algorithm>

namespace search {
namespace {

/// A pair of numbers that is equal for two entries exactly if they are alike.
struct tLikeness {
    std::uint64_t nFirst = 0, nSecond = 0;
    bool operator==(const tLikeness&) const = default;
};

std::uint32_t Entries()
{
    return static_cast<std::uint32_t>(FileCount);
}

/// Called for each entry in a long loop: yields at some of them. True if the search is to stop.
bool Stopped(std::uint32_t n)
{
    constexpr std::uint32_t kEntriesPerYield = 1024;
    if (n % kEntriesPerYield == 0) {
        platform::DoEvents(0);
    }
    return bStopped;
}

/// Links each participating entry to the next one that is alike.
template <typename LikenessOf>
std::vector<std::uint32_t> LinkAlike(LikenessOf likenessOf)
{
    std::vector<std::uint32_t> next(Entries(), cPairIndex::kNone);
    platform::IndexTable nearest; // for each likeness, the lowest entry so far
    for (std::uint32_t i = Entries(); i-- > 0 && !Stopped(i);) {
        if (FileList[i].bDone) {
            continue;
        }
        const tLikeness likeness = likenessOf(i);
        const std::uint64_t nHash = platform::HashNumbers(likeness.nFirst, likeness.nSecond);
        const auto isIt = [&](std::uint32_t n) { return likenessOf(n) == likeness; };
        if (auto* pNearest = nearest.Find(nHash, isIt)) {
            next[i] = *pNearest;
            *pNearest = i;
        } else {
            nearest.Insert(nHash, i);
        }
    }
    return next;
}

std::vector<std::uint32_t> ClassesOfNames()
{
    cTextClasses names;
    std::vector<std::uint32_t> classes(Entries());
    for (std::uint32_t i = 0; i < Entries() && !Stopped(i); ++i) {
        classes[i] = names.ClassOf(FileList[i].sName);
    }
    return classes;
}

/// The identity of full paths: the classes of folder and name. If a path as a whole is not valid UTF-8, it is
/// compared by other rules than its parts may be, so such paths have classes of their own.
std::vector<tLikeness> PathLikenesses(const std::vector<std::uint32_t>& classesOfNames)
{
    constexpr std::uint64_t nOddPath = std::uint64_t{1} << 32;
    std::vector<tLikeness> likenesses(Entries());
    cTextClasses folders;
    cTextClasses oddFolders(FoldAscii);
    cTextClasses oddNames(FoldAscii);

    platform::StoredText sFolder;
    std::uint32_t nFolderClass = 0;
    bool bFolderValid = true;
    for (std::uint32_t i = 0; i < Entries() && !Stopped(i); ++i) {
        const tFileEntry& entry = FileList[i];
        if (i == 0 || !entry.sPath.SameAs(sFolder)) {
            sFolder = entry.sPath;
            nFolderClass = folders.ClassOf(sFolder);
            bFolderValid = platform::IsValidUtf8(sFolder.View());
        }
        const std::string_view sName = entry.sName.View();
        if (bFolderValid && (platform::IsAscii(sName) || platform::IsValidUtf8(sName))) {
            likenesses[i] = {nFolderClass, classesOfNames[i]};
        } else {
            likenesses[i] = {nOddPath | oddFolders.ClassOf(sFolder), oddNames.ClassOf(entry.sName)};
        }
    }
    return likenesses;
}

} // namespace

cPairIndex::cPairIndex(PairKey key)
{
    const auto classesOfNames = ClassesOfNames();
    {
        const auto paths = PathLikenesses(classesOfNames);
        m_nextSamePath = LinkAlike([&](std::uint32_t n) { return paths[n]; });
    }
    const bool bName = key != PairKey::Size;
    const bool bSize = key != PairKey::Name;
    m_nextSameKey = LinkAlike([&](std::uint32_t n) {
        return tLikeness{bName ? classesOfNames[n] : 0,
                         bSize ? static_cast<std::uint64_t>(FileList[n].cySize) : 0};
    });
}

cPairIndex::tPass cPairIndex::Start(std::int32_t i) const
{
    return {m_nextSamePath[static_cast<std::size_t>(i)], m_nextSameKey[static_cast<std::size_t>(i)]};
}

std::optional<tCandidate> cPairIndex::Next(tPass& pass) const
{
    const std::uint32_t j = std::min(pass.nPath, pass.nKey);
    if (j == kNone) {
        return std::nullopt;
    }
    const tCandidate candidate{static_cast<std::int32_t>(j), j == pass.nPath, j == pass.nKey};
    if (candidate.bSamePath) {
        pass.nPath = m_nextSamePath[j];
    }
    if (candidate.bSameKey) {
        pass.nKey = m_nextSameKey[j];
    }
    return candidate;
}

std::vector<std::uint32_t> cPairIndex::EntriesToRead() const
{
    // The first entry of each path is certain to get its turn. A later one is dropped if the first one's turn
    // comes before its own, which may depend on the contents of other files.
    std::vector<std::uint32_t> firstOfPath(Entries(), kNone);
    for (std::uint32_t i = 0; i < Entries() && !Stopped(i); ++i) {
        const std::uint32_t nFirst = firstOfPath[i] != kNone ? firstOfPath[i] : i;
        if (m_nextSamePath[i] != kNone) {
            firstOfPath[m_nextSamePath[i]] = nFirst;
        }
    }
    // The first entry of a size is compared with all others of that size, so these are read as well.
    std::vector<bool> seen(Entries());
    std::vector<bool> toRead(Entries());
    for (std::uint32_t i = 0; i < Entries() && !Stopped(i); ++i) {
        if (seen[i] || m_nextSameKey[i] == kNone) {
            continue;
        }
        const bool bTakesItsTurn = firstOfPath[i] == kNone;
        for (std::uint32_t n = m_nextSameKey[i]; n != kNone; n = m_nextSameKey[n]) {
            seen[n] = true;
            if (bTakesItsTurn && (firstOfPath[n] == kNone || firstOfPath[n] > i)) {
                toRead[n] = toRead[i] = true;
            }
        }
    }
    std::vector<std::uint32_t> entries;
    for (std::uint32_t i = 0; i < Entries(); ++i) {
        if (toRead[i]) {
            entries.push_back(i);
        }
    }
    return entries;
}

void cPairIndex::SplitByChecksum(std::int32_t i)
{
    std::vector<std::uint32_t> open;
    for (auto n = m_nextSameKey[static_cast<std::size_t>(i)]; n != kNone; n = m_nextSameKey[n]) {
        if (!FileList[n].bDone) {
            open.push_back(n);
        }
    }
    platform::IndexTable nearest; // for each checksum, the lowest entry so far
    for (auto n = static_cast<std::uint32_t>(open.size()); n-- > 0 && !Stopped(n);) {
        const std::uint32_t nEntry = open[n];
        const tChecksumText sCRC = FileList[nEntry].sCRC;
        const std::uint64_t nHash = platform::HashBytes(sCRC.View());
        const auto isIt = [&](std::uint32_t nOther) { return FileList[nOther].sCRC == sCRC; };
        auto* const pNearest = nearest.Find(nHash, isIt);
        m_nextSameKey[nEntry] = pNearest != nullptr ? *pNearest : kNone;
        if (pNearest != nullptr) {
            *pNearest = nEntry;
        } else {
            nearest.Insert(nHash, nEntry);
        }
    }
}

} // namespace search

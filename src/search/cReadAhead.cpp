#include "cReadAhead.h"

#include "System.h"

#include <algorithm>

namespace search {
namespace {

// A lone file that has gone from memory is no sign of a cold disk, and announcing costs about what reading a
// small file does: the window starts narrow, and widens as long as most of what is announced was not in
// memory.
constexpr std::size_t kFirstWindow = 8;
constexpr std::size_t kMaxFilesAhead = 512;
constexpr std::int64_t kMaxBytesAhead = 64'000'000;

} // namespace

cReadAhead::cReadAhead(const cPairIndex& index)
    : m_index(index), m_announced(static_cast<std::size_t>(FileCount)), m_nWindow(kFirstWindow)
{
}

void cReadAhead::FileRead(std::int32_t n, bool bWaited)
{
    // 1. What was announced up to this entry has been read or will not be.
    const auto nRead = static_cast<std::uint32_t>(n);
    if (m_announced[nRead]) {
        bool bFound = false;
        while (!bFound && !m_ahead.empty()) {
            bFound = m_ahead.front() == nRead;
            m_nBytesAhead -= FileList[m_ahead.front()].cySize;
            m_ahead.pop_front();
        }
    }
    // 2. Fill the window, from this entry on if it was not in it.
    if (!bWaited) {
        return;
    }
    if (!m_announced[nRead]) {
        m_nNext = m_index.NextSameKey(nRead);
    }
    std::size_t nNeeded = 0;
    std::size_t nAnnounced = 0;
    while (m_ahead.size() < m_nWindow && m_nBytesAhead < kMaxBytesAhead) {
        const std::uint32_t nNext = NextToRead();
        if (nNext == cPairIndex::kNone) {
            return;
        }
        if (!ToBeRead(nNext)) {
            continue;
        }
        const tFileEntry& entry = FileList[nNext];
        m_announced[nNext] = true;
        m_ahead.push_back(nNext);
        m_nBytesAhead += entry.cySize;
        nNeeded += platform::Files().AnnounceRead(entry.FullPath()) ? 1U : 0U;
        ++nAnnounced;
    }
    // 3. Widen it or narrow it.
    m_nWindow = 2 * nNeeded >= nAnnounced ? std::min(2 * m_nWindow, kMaxFilesAhead)
                                          : std::max(m_nWindow / 2, kFirstWindow);
}

bool cReadAhead::ToBeRead(std::uint32_t n) const
{
    const tFileEntry& entry = FileList[n];
    return !m_announced[n] && !entry.bDone && entry.sCRC.empty() && entry.cySize > 0;
}

/// The next entry in reading order: each entry that shares its key with later ones, then these, before any
/// other. Members of a group that was gone through from its first one begin no pass of their own.
std::uint32_t cReadAhead::NextToRead()
{
    if (m_nNext == cPairIndex::kNone) {
        while (m_nHead < m_announced.size() &&
               (m_index.NextSameKey(m_nHead) == cPairIndex::kNone || !ToBeRead(m_nHead))) {
            ++m_nHead;
        }
        if (m_nHead >= m_announced.size()) {
            return cPairIndex::kNone;
        }
        m_nNext = m_nHead++;
    }
    const std::uint32_t nResult = m_nNext;
    m_nNext = m_index.NextSameKey(nResult);
    return nResult;
}

} // namespace search

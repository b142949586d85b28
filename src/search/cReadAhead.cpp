#include "cReadAhead.h"

#include "System.h"
#include "mCommon.h"

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
        m_ahead.clear();
        m_nBytesAhead = 0;
        m_pass = m_index.Start(n);
        m_nPartner = NextPartner();
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
        nNeeded += platform::Files().AnnounceRead(entry.FullPath(), entry.cySize) ? 1U : 0U;
        ++nAnnounced;
    }
    // 3. Widen it or narrow it.
    if (nAnnounced > 0) {
        m_nWindow = 2 * nNeeded >= nAnnounced ? std::min(2 * m_nWindow, kMaxFilesAhead)
                                              : std::max(m_nWindow / 2, kFirstWindow);
    }
}

bool cReadAhead::ToBeRead(std::uint32_t n) const
{
    const tFileEntry& entry = FileList[n];
    return !m_announced[n] && !entry.bDone && entry.sCRC.empty() && entry.cySize > 0;
}

/// The next entry that will be read in the pass looked into, or kNone. Other routes to the entry itself will
/// not be read, in this pass or in one of their own.
std::uint32_t cReadAhead::NextPartner()
{
    while (const auto candidate = m_index.Next(m_pass)) {
        const auto n = static_cast<std::uint32_t>(candidate->j);
        if (candidate->bSamePath) {
            m_announced[n] = true;
        } else if (candidate->bSameKey) {
            return n;
        }
    }
    return cPairIndex::kNone;
}

/// The next entry in reading order: each entry that has partners, then these, before any other.
std::uint32_t cReadAhead::NextToRead()
{
    while (m_nPartner == cPairIndex::kNone && m_nHead < m_announced.size()) {
        const std::uint32_t nHead = m_nHead++;
        if (ToBeRead(nHead)) {
            m_pass = m_index.Start(static_cast<std::int32_t>(nHead));
            m_nPartner = NextPartner();
            if (m_nPartner != cPairIndex::kNone) {
                return nHead;
            }
        }
    }
    const std::uint32_t nResult = m_nPartner;
    if (nResult != cPairIndex::kNone) {
        m_nPartner = NextPartner();
    }
    return nResult;
}

} // namespace search

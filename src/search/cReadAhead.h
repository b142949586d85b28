#pragma once

#include "cPairIndex.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace search {

/// Keeps a cold disk busy: whenever a read had to wait, the files that will be read next are announced to
/// the system, in reading order and a bounded window ahead. While everything is in memory nothing is done.
class cReadAhead
{
public:
    /// Follows the links of `index`, a search by content; it must outlive this.
    explicit cReadAhead(const cPairIndex& index);

    /// Entry `n` has just been read; `bWaited` says whether the disk was waited for.
    void FileRead(std::int32_t n, bool bWaited);

private:
    [[nodiscard]] bool ToBeRead(std::uint32_t n) const;
    std::uint32_t NextPartner();
    std::uint32_t NextToRead();

    const cPairIndex& m_index;
    std::uint32_t m_nHead = 0;                    ///< where to look for the next entry that begins a pass
    cPairIndex::tPass m_pass;                     ///< the pass looked into,
    std::uint32_t m_nPartner = cPairIndex::kNone; ///< and the entry to be read next in it
    std::vector<bool> m_announced;                ///< entries ever announced
    std::deque<std::uint32_t> m_ahead;            ///< entries announced and still to be read
    std::int64_t m_nBytesAhead = 0;
    std::size_t m_nWindow; ///< how many files are announced ahead at a wait
};

} // namespace search

#pragma once

#include "mCommon.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace search {

/// What two entries must share to be a pair.
enum class PairKey { Name, NameAndSize, Size };

/// One later entry that an entry has to be compared with.
struct tCandidate {
    std::int32_t j = 0;
    bool bSamePath = false; ///< the full paths are equal as texts: the same file, reached twice
    bool bSameKey = false;  ///< the names, names and sizes, or sizes are equal
};

/// Links each entry of FileList that takes part to the next one of the same path and the next one of the
/// same key. So the comparison visits the pairs that can come to something, in the order in which a loop
/// over all pairs would meet them, and its cost grows with the entries instead of their square.
class cPairIndex
{
public:
    /// Indexes FileList as it is now; it must not grow while the index is in use.
    explicit cPairIndex(PairKey key);

    /// Begins the pass of entry `i` over the later entries.
    void Start(std::int32_t i);

    /// The next entry of the pass, in ascending order, or none.
    std::optional<tCandidate> Next();

    /// The next entry of the same key behind entry `n`, or kNone.
    [[nodiscard]] std::uint32_t NextSameKey(std::uint32_t n) const { return m_nextSameKey[n]; }

    /// Parts the entries that share the key of `i` and follow it by their checksums, which are all known
    /// now: from here on only those with equal checksums count as having the same key.
    void SplitByChecksum(std::int32_t i);

    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

private:
    std::vector<std::uint32_t> m_nextSamePath;
    std::vector<std::uint32_t> m_nextSameKey;
    std::uint32_t m_nPath = kNone; ///< the pass: the next entry of the same path,
    std::uint32_t m_nKey = kNone;  ///< and that of the same key
};

} // namespace search

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace search {

/// What two entries must share to be a pair.
enum class PairKey { Name, NameAndSize, Size };

/// A later entry that an entry has to be compared with.
struct tCandidate {
    std::int32_t j = 0;
    bool bSamePath = false; ///< the full paths compare equal: the same file, reached twice
    bool bSameKey = false;  ///< the names, the names and sizes, or the sizes are equal
};

/// Links each participating entry of FileList to the next one with the same path and the next one with the
/// same key. The comparison then visits only pairs that can match, in the order in which a loop over all
/// pairs would reach them, and its cost grows linearly with the entries instead of quadratically.
class cPairIndex
{
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    /// Indexes the current FileList, which must not grow while the index is in use. Yields now and then;
    /// after a stop the index is incomplete and must not be used.
    explicit cPairIndex(PairKey key);

    /// The progress of the pass of one entry over the later ones.
    struct tPass {
        std::uint32_t nPath = kNone; ///< the next entry with the same path
        std::uint32_t nKey = kNone;  ///< the next entry with the same key
    };

    /// Starts the pass of entry `i`.
    [[nodiscard]] tPass Start(std::int32_t i) const;

    /// The next entry of the pass, in ascending order; empty at the end.
    std::optional<tCandidate> Next(tPass& pass) const;

    /// The entries, in ascending order, whose files a comparison by content that runs to its end reads
    /// whatever their contents are. Depending on the contents it may read others as well. Yields like the
    /// constructor.
    [[nodiscard]] std::vector<std::uint32_t> EntriesToRead() const;

    /// Splits the entries that follow `i` and share its key by their checksums, all of which must be known:
    /// from here on only those with equal checksums have the same key. Yields now and then.
    void SplitByChecksum(std::int32_t i);

private:
    std::vector<std::uint32_t> m_nextSamePath;
    std::vector<std::uint32_t> m_nextSameKey;
};

} // namespace search

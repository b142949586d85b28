// SPDX-License-Identifier: MIT
#pragma once

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
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    /// Indexes FileList as it is now; it must not grow while the index is in use. Yields now and then; what a
    /// stop leaves of the index is of no use.
    explicit cPairIndex(PairKey key);

    /// How far the pass of an entry over the later ones has come.
    struct tPass {
        std::uint32_t nPath = kNone; ///< the next entry of the same path,
        std::uint32_t nKey = kNone;  ///< and that of the same key
    };

    /// Begins the pass of entry `i`.
    [[nodiscard]] tPass Start(std::int32_t i) const;

    /// The next entry of the pass, in ascending order, or none.
    std::optional<tCandidate> Next(tPass& pass) const;

    /// The entries, in ascending order, whose files the comparison by content asks for if it runs to its end,
    /// whatever is in them. With what is in them it may ask for some others. Yields like the constructor.
    [[nodiscard]] std::vector<std::uint32_t> EntriesToRead() const;

    /// Parts the entries that share the key of `i` and follow it by their checksums, which are all known
    /// now: from here on only those with equal checksums count as having the same key. Yields now and then.
    void SplitByChecksum(std::int32_t i);

private:
    std::vector<std::uint32_t> m_nextSamePath;
    std::vector<std::uint32_t> m_nextSameKey;
};

} // namespace search

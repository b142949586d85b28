// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

// Hashes differ from one run of the program to the next, so that nobody can name files such that all of them
// have one hash.

/// A hash of the bytes of `sText`.
std::uint64_t HashBytes(std::string_view sText);

/// A hash of a pair of numbers.
std::uint64_t HashNumbers(std::uint64_t nFirst, std::uint64_t nSecond);

/// A hash table of numbers that stand for things kept elsewhere (rows, entries), at about 12 bytes each.
/// The caller brings each thing's hash and the test whether a number is the thing looked for.
class IndexTable
{
public:
    void Clear() { *this = IndexTable(); }

    /// Where the number is kept whose thing has hash `nHash` and satisfies `isIt(number)`; null if none.
    /// The number may be replaced by that of an equal thing. Valid until the next Insert.
    template <typename Predicate>
    std::uint32_t* Find(std::uint64_t nHash, Predicate isIt)
    {
        if (m_slots.empty()) {
            return nullptr;
        }
        const auto nTag = Tag(nHash);
        for (std::size_t n = nTag & m_nMask; m_slots[n].nNumber != kEmpty; n = (n + 1) & m_nMask) {
            if (m_slots[n].nTag == nTag && isIt(m_slots[n].nNumber)) {
                return &m_slots[n].nNumber;
            }
        }
        return nullptr;
    }

    /// Adds a number, below 2^32 - 1, whose thing the table does not hold yet.
    void Insert(std::uint64_t nHash, std::uint32_t nNumber);

private:
    static constexpr std::uint32_t kEmpty = 0xFFFFFFFF;
    struct tSlot {
        std::uint32_t nTag = 0;
        std::uint32_t nNumber = kEmpty;
    };

    static std::uint32_t Tag(std::uint64_t nHash) { return static_cast<std::uint32_t>(nHash >> 32); }
    void Place(tSlot slot);
    void Grow();

    std::vector<tSlot> m_slots; ///< none, or a power of two of them
    std::size_t m_nMask = 0;
    std::size_t m_nUsed = 0;
};

} // namespace platform

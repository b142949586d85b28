// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

// Hashes are seeded in each run of the program, so that nobody can craft file names with equal hashes.

/// A hash of the bytes of `sText`.
std::uint64_t HashBytes(std::string_view sText);

/// A hash of a pair of numbers.
std::uint64_t HashNumbers(std::uint64_t nFirst, std::uint64_t nSecond);

/// A hash table of numbers that identify items kept elsewhere (rows, entries), at about 12 bytes each. The
/// caller supplies the hash of each item and the predicate that recognises it.
class IndexTable
{
public:
    void Clear() { *this = IndexTable(); }

    /// The stored number whose item has hash `nHash` and satisfies `isIt(number)`; null if there is none. The
    /// caller may replace it with the number of an equal item. Valid until the next Insert.
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

    /// Adds a number below 2^32 - 1 whose item is not yet in the table.
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

    std::vector<tSlot> m_slots; ///< empty, or a power of two in size
    std::size_t m_nMask = 0;
    std::size_t m_nUsed = 0;
};

} // namespace platform

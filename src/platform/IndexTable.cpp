// SPDX-License-Identifier: MIT
#include "IndexTable.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace platform {
namespace {

/// Spreads each bit of a number over the whole result (the finalizer of SplitMix64).
std::uint64_t Mix(std::uint64_t n)
{
    n ^= n >> 30;
    n *= 0xBF58476D1CE4E5B9U;
    n ^= n >> 27;
    n *= 0x94D049BB133111EBU;
    return n ^ (n >> 31);
}

std::uint64_t Seed()
{
    static const std::uint64_t nSeed = [] {
        std::random_device random;
        return (std::uint64_t{random()} << 32) | random();
    }();
    return nSeed;
}

} // namespace

std::uint64_t HashBytes(std::string_view sText)
{
    std::uint64_t nHash = Mix(Seed() + sText.size());
    std::uint64_t nEight = 0;
    for (; sText.size() >= sizeof nEight; sText.remove_prefix(sizeof nEight)) {
        std::memcpy(&nEight, sText.data(), sizeof nEight);
        nHash = Mix(nHash ^ nEight);
    }
    nEight = 0;
    if (!sText.empty()) {
        std::memcpy(&nEight, sText.data(), sText.size());
    }
    return Mix(nHash ^ nEight);
}

std::uint64_t HashNumbers(std::uint64_t nFirst, std::uint64_t nSecond)
{
    return Mix(Mix(nFirst + Seed()) ^ nSecond);
}

void IndexTable::Insert(std::uint64_t nHash, std::uint32_t nNumber)
{
    // At most three quarters full.
    if ((m_nUsed + 1) * 4 > m_slots.size() * 3) {
        Grow();
    }
    Place({Tag(nHash), nNumber});
    ++m_nUsed;
}

void IndexTable::Place(tSlot slot)
{
    std::size_t n = slot.nTag & m_nMask;
    while (m_slots[n].nNumber != kEmpty) {
        n = (n + 1) & m_nMask;
    }
    m_slots[n] = slot;
}

void IndexTable::Grow()
{
    constexpr std::size_t kFewest = 16;
    std::vector<tSlot> old(std::max(kFewest, m_slots.size() * 2));
    old.swap(m_slots);
    m_nMask = m_slots.size() - 1;
    for (const tSlot slot : old) {
        if (slot.nNumber != kEmpty) {
            Place(slot);
        }
    }
}

} // namespace platform

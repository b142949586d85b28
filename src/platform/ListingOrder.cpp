// SPDX-License-Identifier: MIT
#include "ListingOrder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace platform {
namespace {

constexpr auto kLongestLength = std::numeric_limits<unsigned char>::max();

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The weight of each byte that is not a digit. None is 0, which follows the end of a key.
constexpr auto kWeights = [] {
    std::array<char, 256> weights{};
    for (std::size_t n = 0; n < weights.size(); ++n) {
        const bool bCapital = n >= 'A' && n <= 'Z';
        // Names contain no separator, so the bytes below it can move up by one to make room for the dot.
        weights[n] = static_cast<char>(n == '.' ? 1 : n < '.' ? n + 1 : bCapital ? n - 'A' + 'a' : n);
    }
    return weights;
}();

/// Appends the number at the start of `sText`: its length without leading zeros, then its digits. Returns the
/// remaining text.
std::string_view AppendNumber(std::string_view sText, std::string& sKey)
{
    const auto end = std::find_if_not(sText.begin(), sText.end(), IsDigit);
    const auto first = std::find_if(sText.begin(), end, [](char c) { return c != '0'; });
    sKey.push_back('0');
    auto nLength = static_cast<std::size_t>(end - first) + 1; // never 0
    for (; nLength >= kLongestLength; nLength -= kLongestLength - 1) {
        sKey.push_back(static_cast<char>(kLongestLength));
    }
    sKey.push_back(static_cast<char>(nLength));
    sKey.append(first, end);
    return sText.substr(static_cast<std::size_t>(end - sText.begin()));
}

void AppendKey(std::string_view sName, std::string& sKey)
{
    while (!sName.empty()) {
        if (IsDigit(sName.front())) {
            sName = AppendNumber(sName, sKey);
        } else {
            sKey.push_back(kWeights[static_cast<unsigned char>(sName.front())]);
            sName.remove_prefix(1);
        }
    }
}

/// An entry to sort.
struct tKeyed {
    std::uint64_t nWindow; ///< the eight bytes of the key after the common prefix of all keys
    std::size_t nKeyStart;
    std::uint32_t nKeyLength;
    std::uint32_t nEntry;
};

/// Sorts entries by their keys, which are stored in `sKeys`. Most comparisons need only the windows, which
/// halves the time for a folder with a million numbered names.
class cSorter
{
public:
    cSorter(const FolderListing& listing, std::string_view sKeys) : m_listing(listing), m_sKeys(sKeys) {}

    void Sort(std::vector<tKeyed>::iterator first, std::vector<tKeyed>::iterator last) const
    {
        if (last - first < 2) {
            return;
        }
        std::string_view sCommon = Key(*first);
        for (auto each = first + 1; each != last; ++each) {
            const std::string_view sKey = Key(*each);
            const auto differ = std::mismatch(sCommon.begin(), sCommon.end(), sKey.begin(), sKey.end());
            sCommon = sCommon.substr(0, static_cast<std::size_t>(differ.first - sCommon.begin()));
        }
        for (auto each = first; each != last; ++each) {
            each->nWindow = Window(Key(*each).substr(sCommon.size()));
        }
        std::sort(first, last, [&](const tKeyed& a, const tKeyed& b) {
            return a.nWindow != b.nWindow ? a.nWindow < b.nWindow : Before(a, b);
        });
    }

private:
    [[nodiscard]] std::string_view Key(const tKeyed& entry) const
    {
        return m_sKeys.substr(entry.nKeyStart, entry.nKeyLength);
    }

    static std::uint64_t Window(std::string_view sText)
    {
        std::uint64_t nWindow = 0;
        for (std::size_t n = 0; n < sizeof nWindow; ++n) {
            nWindow = nWindow << 8 | (n < sText.size() ? static_cast<unsigned char>(sText[n]) : 0U);
        }
        return nWindow;
    }

    [[nodiscard]] bool Before(const tKeyed& a, const tKeyed& b) const
    {
        const int nOrder = Key(a).compare(Key(b));
        return nOrder != 0 ? nOrder < 0 : m_listing.Entry(a.nEntry).Name() < m_listing.Entry(b.nEntry).Name();
    }

    const FolderListing& m_listing;
    std::string_view m_sKeys;
};

} // namespace

std::string NameKey(std::string_view sName)
{
    std::string sKey;
    AppendKey(sName, sKey);
    return sKey;
}

void SortListing(FolderListing& listing)
{
    std::string sKeys;
    std::vector<tKeyed> entries;
    entries.reserve(listing.Count());
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        const std::size_t nKeyStart = sKeys.size();
        AppendKey(listing.Entry(n).Name(), sKeys);
        entries.push_back({0, nKeyStart, static_cast<std::uint32_t>(sKeys.size() - nKeyStart),
                           static_cast<std::uint32_t>(n)});
    }
    const auto hidden = std::partition(entries.begin(), entries.end(), [&](const tKeyed& entry) {
        return !listing.Entry(entry.nEntry).bHidden;
    });
    const cSorter sorter(listing, sKeys);
    sorter.Sort(entries.begin(), hidden);
    sorter.Sort(hidden, entries.end());
    std::vector<std::uint32_t> order;
    order.reserve(entries.size());
    for (const tKeyed& entry : entries) {
        order.push_back(entry.nEntry);
    }
    listing.Reorder(order);
}

} // namespace platform

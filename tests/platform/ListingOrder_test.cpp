// SPDX-License-Identifier: MIT
#include "ListingOrder.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <tuple>
#include <vector>

namespace {

using Names = std::vector<std::string>;

/// A listing of these names, sorted; names that start with a dot are hidden.
Names Sorted(const Names& names)
{
    platform::FolderListing listing;
    for (std::size_t n = 0; n < names.size(); ++n) {
        const std::string sField = names[n] + std::string(1 + n % 3, '\0');
        listing.Add({sField, n % 2 == 0, names[n][0] == '.', static_cast<std::int64_t>(names[n].size()), {}});
    }
    platform::SortListing(listing);
    Names sorted;
    for (std::size_t n = 0; n < listing.Count(); ++n) {
        const auto entry = listing.Entry(n);
        sorted.emplace_back(entry.cFileName.substr(0, entry.cFileName.find('\0')));
        EXPECT_EQ(entry.nFileSize, static_cast<std::int64_t>(sorted.back().size())) << "entries got mixed up";
    }
    return sorted;
}

TEST(ListingOrder, GoesByWhatAPersonReads)
{
    const std::string sLong(300, '7');
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"the original before a numbered copy", "beach.jpg", "beach (1).jpg"},
        {"the original before a named copy", "a.txt", "a - Copy.txt"},
        {"a named copy before a numbered name", "a - Copy.txt", "a2.txt"},
        {"a number by its value", "a2.txt", "a10.txt"},
        {"zeros before a number do not count", "a002", "a10"},
        {"nor do they where the rest differs", "a01b", "a1c"},
        {"names equal but for zeros by their bytes", "a01", "a1"},
        {"nothing but zeros is zero", "a000", "a1"},
        {"zeros alone by their bytes", "a0", "a00"},
        {"more digits are more", "a9999999999999999999999", "a10000000000000000000000"},
        {"very many digits are more", "a" + sLong, "a1" + sLong},
        {"very many digits by their value", "a" + sLong + "1", "a" + sLong + "2"},
        {"one more than a length of one byte can tell", std::string(254, '9'), "1" + std::string(254, '0')},
        {"a number before a letter", "10", "a"},
        {"a number stands where digits do", "a9", "a:"},
        {"a number after what stands before digits", "a-", "a1"},
        {"a dot before every other character", "a.z", "a\x01"},
        {"a dot before a number", "a.z", "a1"},
        {"a name before its continuation by a low byte", "a", "a\x01"},
        {"a character before the dot by its value", "a,", "a-"},
        {"letters without case", "a", "B"},
        {"letters equal but for case by their bytes", "A", "a"},
        {"letter case after the whole name", "ab", "Ac"},
        {"an underline before letters of either case", "a_", "aB"},
        {"bytes past ASCII after ASCII", "az", "a\xC3\xA4"},
        {"letters past ASCII keep their case", "\xC3\x84z",
         "\xC3\xA4"
         "a"},
        {"visible before hidden", "z", ".a"},
        {"hidden by their names", ".a2", ".a10"},
    };
    for (const auto& [pWhat, sFirst, sSecond] : cases) {
        const Names wanted{sFirst, sSecond};
        EXPECT_EQ(Sorted({sSecond, sFirst}), wanted) << pWhat;
        EXPECT_EQ(Sorted({sFirst, sSecond}), wanted) << pWhat;
    }
}

} // namespace

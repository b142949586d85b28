// SPDX-License-Identifier: MIT
#include "Escaped.h"
#include "FileTime.h"
#include "ListView.h"
#include "ListingOrder.h"
#include "Texts.h"
#include "mTextCompare.h"

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

TEST(ListView, RefusesAKeyItHolds)
{
    platform::Form form;
    platform::ListView list(form);
    // A key is the same however it falls into head and text.
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"/a/b", "b", true}, {"/a/b", "/a/b", false}, {"/a/b", "elsewhere", false},
        {"/a/B", "B", true}, {"", "", true},          {"", "x", false},
        {"/a/", "", true},   {"b", "b", true},
    };
    for (const auto& [sKey, sText, bAdded] : cases) {
        EXPECT_EQ(list.ListItems.Add(sKey, sText, 1).has_value(), bAdded) << sKey;
    }
    EXPECT_EQ(list.ListItems.Count(), 5U);
    EXPECT_EQ(list.ListItems(3).Key(), "");
    // Many keys, so that the table of keys grows more than once.
    for (const bool bNew : {true, false}) {
        for (int n = 0; n < 10'000; ++n) {
            const std::string sName = std::to_string(n);
            EXPECT_EQ(list.ListItems.Add("/folder/" + sName, sName, 2).has_value(), bNew);
        }
    }
    list.ListItems.Clear();
    EXPECT_TRUE(list.ListItems.Add("/a/b", "b", 1));
}

TEST(TextCompare, IgnoresLetterCase)
{
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"README.txt", "readme.TXT", true},
        {"ÄRGER", "ärger", true},
        {"straße", "STRASSE", true}, // full folding
        {"Σίσ", "σΊς", true},
        {"\uAB70\u13F8", "\u13A0\u13F0", true}, // Cherokee folds to its capitals
        {"\xE4", "\xC4", false},                // Latin-1 bytes are no letters
        {"A\xE4", "a\xE4", true},
        {"Ä\xFF", "ä\xFF", false}, // invalid as a whole: ASCII rules
        {"a[", "a{", false},
        {"ab", "abc", false},
    };
    for (const auto& [sLeft, sRight, bEqual] : cases) {
        std::string sLeftFolded, sRightFolded;
        search::FoldText(sLeft, sLeftFolded);
        search::FoldText(sRight, sRightFolded);
        EXPECT_EQ(sLeftFolded == sRightFolded, bEqual) << sLeft << " " << sRight;
    }
}

TEST(Escaped, LetsNoNameActOnTheTextAroundIt)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"näm€\U0001F600", "näm€\U0001F600"},
        {"back\\slash\\", "back\\slash\\"},
        {"\\x0A\\x0", "\\x5Cx0A\\x0"},
        {"two\nlines\t\x7F", "two\\x0Alines\\x09\\x7F"},
        {std::string("a\0b", 3), "a\\x00b"},
        // Stray bytes, characters cut short; overlong forms, a surrogate; the last code point, the next.
        {"\xFF\xC3(\xE2\xAC(\xE2\xAC", "\\xFF\\xC3(\\xE2\\xAC(\\xE2\\xAC"},
        {"\xC0\xAF\xE0\x9F\xBF", "\\xC0\\xAF\\xE0\\x9F\\xBF"},
        {"\xF0\x8F\xBF\xBF\xED\xA0\x80", "\\xF0\\x8F\\xBF\\xBF\\xED\\xA0\\x80"},
        {"\U0010FFFF\xF4\x90\x80\x80", "\U0010FFFF\\xF4\\x90\\x80\\x80"},
        {"\u0085\u009F\u00A0", "\\xC2\\x85\\xC2\\x9F\u00A0"},
        {"exe\u202Etxt\u2028", "exe\\xE2\\x80\\xAEtxt\\xE2\\x80\\xA8"},
        {"zero\u200Bwidth\u200D", "zero\\xE2\\x80\\x8Bwidth\u200D"},
    };
    for (const auto& [sName, sShown] : cases) {
        EXPECT_EQ(platform::Escaped(sName), sShown);
    }
}

TEST(DateValue, CountsFrom30December1899BothWays)
{
    platform::tSystemTime stTime;
    for (const auto& [nSeconds, dtDate] :
         {std::pair(-59'011'459'200, -657434.0), std::pair(-2'209'226'400, -1.25),
          std::pair(253'402'300'799, 2958465 + 86399 / 86400.0)}) {
        ASSERT_TRUE(platform::FileTimeToSystemTime({nSeconds}, stTime));
        EXPECT_DOUBLE_EQ(platform::DateValue(stTime), dtDate);
        EXPECT_DOUBLE_EQ(platform::DateValue(platform::SplitDateValue(dtDate)), dtDate);
    }
    EXPECT_FALSE(platform::FileTimeToSystemTime({253'402'300'800}, stTime));
    EXPECT_FALSE(platform::FileTimeToSystemTime({-59'011'459'201}, stTime));
    EXPECT_EQ(platform::FormatDateTime(38022.375 + 1 / 86400.0), "02/05/04 09:00:01"); // the C locale
    EXPECT_EQ(platform::FormatNumber(10'000'000), "10000000");
}

} // namespace

// SPDX-License-Identifier: MIT

#include "Escaped.h"
#include "FileTime.h"
#include "ListView.h"
#include "Texts.h"
#include "mTextCompare.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

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
        EXPECT_EQ(search::TextEqual(sLeft, sRight), bEqual) << sLeft << " " << sRight;
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
        // Stray bytes and characters cut short; overlong forms, a surrogate; the last code point, one past
        // it.
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

#include "FileTime.h"
#include "TextStore.h"
#include "Texts.h"
#include "Utf8.h"
#include "mTextCompare.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf8, CountsCharactersAndStrayBytes)
{
    const struct {
        std::string sText;
        std::size_t nChars;
        bool bValid;
    } cases[] = {
        {"", 0, true},
        {"plain text", 10, true},
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", 3, true},
        {"\xF4\x8F\xBF\xBF", 1, true},  // the last code point
        {"\xF4\x90\x80\x80", 4, false}, // past it
        {"\xC0\xAF", 2, false},         // overlong forms
        {"\xE0\x9F\xBF", 3, false},
        {"\xF0\x8F\xBF\xBF", 4, false},
        {"\xED\xA0\x80", 3, false}, // a surrogate
        {"\xE2\x82", 2, false},     // cut short
        {"a\xFF"
         "b\x80",
         4, false},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(platform::CountChars(each.sText), each.nChars) << each.sText;
        EXPECT_EQ(platform::IsValidUtf8(each.sText), each.bValid) << each.sText;
        for (std::size_t n = 0; n <= each.nChars; ++n) {
            const auto sLeft = platform::LeftChars(each.sText, n);
            const auto sRight = platform::RightChars(each.sText, each.nChars - n);
            EXPECT_EQ(std::string(sLeft) + std::string(sRight), each.sText);
        }
    }
}

TEST(TextCompare, IgnoresLetterCase)
{
    const struct {
        std::string sLeft, sRight;
        bool bEqual;
    } cases[] = {
        {"README.txt", "readme.TXT", true},
        {"\xC3\x84RGER", "\xC3\xA4rger", true},
        {"stra\xC3\x9F"
         "e",
         "STRASSE", true},                                              // full folding
        {"\xCE\xA3\xCE\xAF\xCF\x83", "\xCF\x83\xCE\x8A\xCF\x82", true}, // three sigmas
        {"\xE4", "\xC4", false},                                        // Latin-1 bytes are no letters
        {"A\xE4", "a\xE4", true},
        {"\xC3\x84\xFF", "\xC3\xA4\xFF", false}, // invalid as a whole: ASCII rules
        {"\uAB70\u13F8", "\u13A0\u13F0", true},  // Cherokee folds to its capitals
        {"a[", "a{", false},
        {"ab", "abc", false},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(search::TextEqual(each.sLeft, each.sRight), each.bEqual)
            << each.sLeft << " " << each.sRight;
        std::string sFolded;
        std::string sFoldedAgain;
        search::FoldText(each.sLeft, sFolded);
        search::FoldText(sFolded, sFoldedAgain);
        EXPECT_EQ(sFoldedAgain, sFolded);
    }
}

TEST(TextStore, KeepsTextsOfAnyLength)
{
    platform::TextStore store;
    std::vector<std::pair<std::string, platform::StoredText>> kept;
    for (std::size_t n = 0; n < 300; ++n) {
        const std::string sText(n * n,
                                static_cast<char>('a' + n % 26)); // the last ones are longer than a block
        kept.emplace_back(sText, store.Add(sText));
    }
    for (const auto& [sText, stored] : kept) {
        EXPECT_EQ(stored.View(), sText);
    }
}

TEST(DateValue, CountsFrom30December1899BothWays)
{
    const struct {
        std::int64_t nSeconds;
        double dtDate;
    } cases[] = {
        {-2'209'161'600, 0},        {-2'209'140'000, 0.25},
        {-2'209'226'400, -1.25},    {0, 25569},
        {1'075'971'600, 38022.375}, {253'402'300'799, 2958465 + 86399 / 86400.0},
        {-59'011'459'200, -657434},
    };
    for (const auto& each : cases) {
        platform::tSystemTime stTime;
        ASSERT_TRUE(platform::FileTimeToSystemTime({each.nSeconds}, stTime));
        EXPECT_DOUBLE_EQ(platform::DateValue(stTime), each.dtDate);
        const auto stAgain = platform::SplitDateValue(each.dtDate);
        EXPECT_EQ(
            std::tie(stAgain.wYear, stAgain.wMonth, stAgain.wDay, stAgain.wHour, stAgain.wMinute,
                     stAgain.wSecond),
            std::tie(stTime.wYear, stTime.wMonth, stTime.wDay, stTime.wHour, stTime.wMinute, stTime.wSecond));
    }
    platform::tSystemTime stTime;
    EXPECT_FALSE(platform::FileTimeToSystemTime({253'402'300'800}, stTime));
    EXPECT_FALSE(platform::FileTimeToSystemTime({-59'011'459'201}, stTime));
    EXPECT_EQ(platform::FormatDateTime(38022.375 + 1 / 86400.0), "02/05/04 09:00:01"); // the C locale
    EXPECT_EQ(platform::FormatNumber(10'000'000), "10000000");
}

} // namespace

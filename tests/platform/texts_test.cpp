#include "Escaped.h"
#include "FileTime.h"
#include "TextStore.h"
#include "Texts.h"
#include "Utf8.h"
#include "mTextCompare.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf8, CountsCharactersAndStrayBytes)
{
    // Characters of one to four bytes, the last code point, and one past it; three overlong forms, a
    // surrogate; a character cut short, stray bytes.
    const struct {
        std::string sText;
        std::size_t nChars;
        bool bValid;
    } cases[] = {
        {"", 0, true},
        {"plain text", 10, true},
        {"ä€\U0001F600", 3, true},
        {"\U0010FFFF", 1, true},
        {"\xF4\x90\x80\x80", 4, false},
        {"\xC0\xAF", 2, false},
        {"\xE0\x9F\xBF", 3, false},
        {"\xF0\x8F\xBF\xBF", 4, false},
        {"\xED\xA0\x80", 3, false},
        {"\xE2\x82", 2, false},
        {"a\xFFz\x80", 4, false},
    };
    for (const auto& [sText, nChars, bValid] : cases) {
        EXPECT_EQ(platform::CountChars(sText), nChars) << sText;
        EXPECT_EQ(platform::IsValidUtf8(sText), bValid) << sText;
        for (std::size_t n = 0; n <= nChars; ++n) {
            std::string sBoth(platform::LeftChars(sText, n));
            EXPECT_EQ(sBoth.append(platform::RightChars(sText, nChars - n)), sText);
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
        {"\xFF\xC3(\xE2\x82", "\\xFF\\xC3(\\xE2\\x82"},
        {"\u0085\u009F\u00A0", "\\xC2\\x85\\xC2\\x9F\u00A0"},
        {"exe\u202Etxt\u2028", "exe\\xE2\\x80\\xAEtxt\\xE2\\x80\\xA8"},
        {"zero\u200Bwidth\u200D", "zero\\xE2\\x80\\x8Bwidth\u200D"},
    };
    for (const auto& [sName, sShown] : cases) {
        EXPECT_EQ(platform::Escaped(sName), sShown);
    }
}

TEST(TextStore, KeepsTextsOfAnyLength)
{
    platform::TextStore store;
    std::vector<std::pair<std::string, platform::StoredText>> kept;
    for (std::size_t n = 0; n < 300; ++n) { // the last ones are longer than a block
        const std::string sText(n * n, static_cast<char>('a' + n % 26));
        kept.emplace_back(sText, store.Add(sText));
    }
    for (const auto& [sText, stored] : kept) {
        EXPECT_EQ(stored.View(), sText);
    }
}

TEST(DateValue, CountsFrom30December1899BothWays)
{
    const std::pair<std::int64_t, double> cases[] = {
        {-59'011'459'200, -657434}, {-2'209'226'400, -1.25},    {-2'209'161'600, 0},
        {-2'209'140'000, 0.25},     {1'075'971'600, 38022.375}, {253'402'300'799, 2958465 + 86399 / 86400.0},
    };
    platform::tSystemTime stTime;
    for (const auto& [nSeconds, dtDate] : cases) {
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

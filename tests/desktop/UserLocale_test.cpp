#include "PacedEventLoop.h"
#include "UserLocale.h"

#include <climits>
#include <gtest/gtest.h>

namespace {

TEST(GroupDigits, GroupsFromTheRightAsTheLocaleSays)
{
    const struct {
        const char* pDigits;
        std::string sSeparator, grouping, sExpected;
    } cases[] = {
        {"999", ",", "\3", "999"},
        {"1000", ",", "\3\3", "1,000"},
        {"12345678", "\xE2\x80\xAF", "\3", "12\u202F345\u202F678"}, // a separator of three bytes
        {"123456789", ",", "\3\2", "12,34,56,789"},
        {"123456789", ",", std::string("\3") + static_cast<char>(CHAR_MAX), "123456,789"},
        {"1234567", "", "", "1234567"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(desktop::GroupDigits(each.pDigits, each.sSeparator, each.grouping), each.sExpected);
    }
}

TEST(PacedEventLoop, RunsNowAndThenHoweverOftenItIsAsked)
{
    int nRuns = 0;
    desktop::PacedEventLoop loop([&] { ++nRuns; });
    int nYields = 0;
    while (nRuns < 3) {
        loop.DoEvents(1);
        ++nYields;
    }
    EXPECT_GT(nYields, 10 * nRuns);
}

} // namespace

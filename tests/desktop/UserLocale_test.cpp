#include "PacedEventLoop.h"
#include "UserLocale.h"

#include <chrono>
#include <climits>
#include <gtest/gtest.h>

namespace {

TEST(GroupDigits, GroupsFromTheRightAsTheLocaleSays)
{
    const struct {
        const char* pDigits;
        std::string sSeparator, grouping, sExpected;
    } cases[] = {
        {"0", ",", "\3", "0"},
        {"999", ",", "\3", "999"},
        {"1000", ",", "\3\3", "1,000"},
        {"12345678", "\xE2\x80\xAF", "\3",
         "12\xE2\x80\xAF"
         "345\xE2\x80\xAF"
         "678"}, // a separator of three bytes
        {"123456789", ",", "\3\2", "12,34,56,789"},
        {"123456789", ",", std::string("\3") + CHAR_MAX, "123456,789"},
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
    const auto began = std::chrono::steady_clock::now();
    int nYields = 0;
    while (nRuns < 4) {
        loop.DoEvents(1);
        ++nYields;
    }
    // Four runs have three pauses between them, each of at least one tick of the coarse clock below 16 ms.
    EXPECT_GT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(3 * 11));
    EXPECT_GT(nYields, 4);
}

} // namespace

// SPDX-License-Identifier: MIT
#include "PacedEventLoop.h"
#include "UserLocale.h"

#include <climits>
#include <gtest/gtest.h>

namespace {

TEST(GroupDigits, GroupsFromTheRightAsTheLocaleSays)
{
    using desktop::GroupDigits;
    EXPECT_EQ(GroupDigits("999", ",", "\3"), "999");
    EXPECT_EQ(GroupDigits("1000", ",", "\3\3"), "1,000");
    EXPECT_EQ(GroupDigits("12345678", "\xE2\x80\xAF", "\3"), "12\u202F345\u202F678");
    EXPECT_EQ(GroupDigits("123456789", ",", "\3\2"), "12,34,56,789");
    EXPECT_EQ(GroupDigits("123456789", ",", {'\3', CHAR_MAX}), "123456,789");
    EXPECT_EQ(GroupDigits("1234567", "", ""), "1234567");
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

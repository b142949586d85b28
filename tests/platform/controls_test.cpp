// SPDX-License-Identifier: MIT
#include "ListView.h"

#include <gtest/gtest.h>

namespace {

TEST(ListView, RefusesAKeyItHolds)
{
    platform::Form form;
    platform::ListView list(form);
    // A key is the same however it falls into head and text.
    const struct {
        std::string sKey, sText;
        bool bAdded;
    } cases[] = {
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

} // namespace

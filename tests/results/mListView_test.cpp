#include "ScriptedRows.h"
#include "mListView.h"

#include <cctype>
#include <gtest/gtest.h>

namespace {

TEST(mListView, RemovesTheSelectedRowsAndLeavesTheCurrentOneSelected)
{
    // A row for each letter, a capital for a selected one, which need not be the current one.
    const struct {
        std::string sRows;
        bool bMulti;
        std::size_t nCurrent;
        std::string sAfter;
        std::optional<std::size_t> rowShown;
    } cases[] = {
        {"A", false, 0, "", {}},     {"abc", false, 1, "aBc", 1}, {"Abc", false, 0, "Bc", 0},
        {"abC", false, 2, "aB", 1},  {"abC", false, 0, "Ab", 0},  {"aBcDe", true, 4, "acE", 2},
        {"aBCDe", true, 2, "aE", 1}, {"AbcD", true, 1, "Bc", 0},  {"ABC", true, 1, "", {}},
    };
    for (const auto& each : cases) {
        platform::Form form;
        platform::ListView lv(form);
        support::ScriptedRows rows;
        lv.ObserveRows(&rows);
        lv.MultiSelect = each.bMulti;
        for (const char c : each.sRows) {
            const std::string sText(1, static_cast<char>(std::tolower(c)));
            lv.ListItems.Add(sText, sText, 1)->SetSelected(std::isupper(c) != 0);
        }
        lv.SetSelectedItem(each.nCurrent);
        results::RemoveSelectedItems(lv);
        std::string sAfter;
        for (std::size_t n = 1; n <= lv.ListItems.Count(); ++n) {
            const char c = lv.ListItems(n).Text()[0];
            sAfter += lv.ListItems(n).Selected() ? static_cast<char>(std::toupper(c)) : c;
        }
        EXPECT_EQ(sAfter, each.sAfter) << each.sRows;
        EXPECT_EQ(rows.rowShown, each.rowShown) << each.sRows;
    }
}

} // namespace

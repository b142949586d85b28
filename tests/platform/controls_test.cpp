#include "ListView.h"

#include <gtest/gtest.h>

namespace {

using platform::Form;
using platform::ListView;

struct Observer final : platform::ListViewObserver {
    std::string sHeard;
    void RowAdded(std::size_t nRow) override { sHeard += "+" + std::to_string(nRow); }
    void RowChanged(std::size_t nRow) override { sHeard += "~" + std::to_string(nRow); }
    void RowRemoved(std::size_t nRow) override { sHeard += "-" + std::to_string(nRow); }
    void RowsCleared() override { sHeard += "0"; }
    void RowsSorted() override { sHeard += "s"; }
    void SelectionChanged() override { sHeard += "*"; }
    void ShowRow(std::size_t nRow) override { sHeard += "^" + std::to_string(nRow); }
    std::optional<std::size_t> RowAt(float /*x*/, float y) override { return static_cast<std::size_t>(y); }
};

TEST(ListView, RefusesAKeyItHolds)
{
    Form form;
    ListView list(form);
    // A key is the same however it falls into head and text.
    const struct {
        std::string sKey, sText;
        bool bAdded;
    } cases[] = {
        {"/a/b", "b", true}, {"/a/b", "/a/b", false}, {"/a/b", "elsewhere", false},
        {"/a/B", "B", true}, {"", "", true},          {"", "x", false},
        {"/a/", "", true},   {"b", "b", true},
    };
    for (const auto& each : cases) {
        const std::size_t nBefore = list.ListItems.Count();
        EXPECT_EQ(list.ListItems.Add(each.sKey, each.sText, 1).has_value(), each.bAdded) << each.sKey;
        EXPECT_EQ(list.ListItems.Count(), nBefore + (each.bAdded ? 1 : 0));
    }
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

TEST(ListView, KeepsItsRowsAndTellsOfThem)
{
    Form form;
    ListView list(form);
    Observer observer;
    list.ObserveRows(&observer);
    EXPECT_FALSE(list.SelectedItem());
    auto first = *list.ListItems.Add("/a/x", "x", 2);
    auto second = *list.ListItems.Add("/a/y", "y", 3);
    second.SetSubItems(3, "/a/");
    second.SetSubItems(1, "12");
    second.SetSmallIcon(4);
    second.SetSelected(true);
    EXPECT_EQ(observer.sHeard, "+0+1~1~1~1*");
    // The first row became the current one without being selected.
    EXPECT_EQ(list.SelectedItem()->Index(), 1U);
    EXPECT_FALSE(first.Selected());
    EXPECT_EQ(second.Key() + "|" + std::string(second.SubItems(1)) + "|" + std::string(second.SubItems(2)) +
                  "|" + std::string(second.SubItems(3)),
              "/a/y|12||/a/");
    EXPECT_EQ(list.ListItems(2).SmallIcon(), 4);
    EXPECT_TRUE(list.ListItems(2).Selected());
    list.ListItems.Clear();
    EXPECT_FALSE(list.SelectedItem());
    EXPECT_TRUE(observer.sHeard.ends_with("0"));
}

TEST(ListView, GetsTheFocusOnlyWhereInputIsTaken)
{
    Form form;
    ListView list(form);
    form.SetEnabled(false);
    EXPECT_FALSE(list.SetFocus());
    EXPECT_EQ(form.ActiveControl(), nullptr);
    form.SetEnabled(true);
    EXPECT_TRUE(list.SetFocus());
    EXPECT_EQ(form.ActiveControl(), &list);
}

} // namespace

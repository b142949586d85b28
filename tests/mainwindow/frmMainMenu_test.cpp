// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "mCommon.h"

#include <set>

namespace {

using frmMainMenu = MainWindow;
using platform::MenuItem;

/// All items, each behind those that hold it.
std::vector<const MenuItem*> All(const std::vector<MenuItem*>& items)
{
    std::vector<const MenuItem*> all;
    for (const MenuItem* pItem : items) {
        all.push_back(pItem);
        const auto inner = All(pItem->items);
        all.insert(all.end(), inner.begin(), inner.end());
    }
    return all;
}

TEST_F(frmMainMenu, HoldsEachItemOnceWithAHandlerIfItIsACommand)
{
    const auto all = All(main.form.menus);
    EXPECT_EQ(all.size(), 46U);
    EXPECT_EQ(std::set(all.begin(), all.end()).size(), all.size());
    for (const MenuItem* pItem : all) {
        const bool bCommand = pItem->items.empty() && pItem->sCaption != "-";
        EXPECT_EQ(pItem->Click != nullptr, bCommand) << pItem->sCaption;
    }
}

TEST_F(frmMainMenu, EnablesTheFileCommandsAsOfTheLastOperation)
{
    const std::string sNeedRows =
        "Open;Explore;Open with;Select;Move To Folder ..;Copy To Folder ..;Delete;Properties;";
    const auto disabled = [&] {
        std::string sFound;
        for (const MenuItem* pItem : All(main.form.menus)) {
            sFound += pItem->Enabled() ? "" : pItem->sCaption + ";";
        }
        return sFound;
    };
    Add(main.lvFiles, {"a"});
    EXPECT_EQ(disabled(), sNeedRows); // until an operation begins or ends
    search::SetWorking(true);
    EXPECT_EQ(disabled(), "");
    main.mnuSearchClearResults.Click();
    EXPECT_EQ(disabled(), "");
    search::SetWorking(false);
    EXPECT_EQ(disabled(), sNeedRows);
}

TEST_F(frmMainMenu, TurnsTheModesAsOneGroup)
{
    MenuItem* const modes[] = {&main.mnuOptionsSearchContent, &main.mnuOptionsSearchName,
                               &main.mnuOptionsSearchNameSize};
    const auto state = [&] {
        std::string sState;
        for (const MenuItem* pItem : {modes[0], modes[1], modes[2], &main.mnuOptionsHidden}) {
            sState += pItem->Checked() ? 'x' : '-';
        }
        return sState;
    };
    EXPECT_EQ(state(), "x---");
    // Each mode takes its place from either of the others; a click on the one in force gives it to both.
    const std::pair<int, std::string> clicks[] = {{2, "--x-"}, {1, "-x--"}, {0, "x---"},
                                                  {1, "-x--"}, {2, "--x-"}, {0, "x---"},
                                                  {0, "-xx-"}, {1, "x-x-"}, {2, "xx--"}};
    for (const auto& [nClicked, sAfter] : clicks) {
        modes[nClicked]->Click();
        EXPECT_EQ(state(), sAfter);
    }
    main.mnuOptionsHidden.Click();
    EXPECT_EQ(state(), "xx-x");
}

} // namespace

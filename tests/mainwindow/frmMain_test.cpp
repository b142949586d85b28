// SPDX-License-Identifier: MIT

#include "MainWindow.h"
#include "mCommon.h"

#include <set>
#include <tuple>

namespace {

using platform::WindowState;

using frmMainLayout = MainWindow;
using Numbers = std::vector<float>;

TEST_F(frmMainLayout, SharesOutTheRoomAndKeepsWhatWouldBeBelowZero)
{
    // The widths are those of a list and of the columns that take its room; then the height of lvFiles.
    const std::tuple<float, float, WindowState, Numbers, float> steps[] = {
        {8085, 5490, WindowState::Normal, {8085, 5765, 2195}, 2925},
        {19200, 15000, WindowState::Maximized, {19200, 16880, 13310}, 12435},
        {100, 100, WindowState::Minimized, {19200, 16880, 13310}, 12435},
        {5890, 2565, WindowState::Normal, {5890, 3570, 0}, 0},
        {6000, 3000, WindowState::Normal, {6000, 3680, 110}, 435},
        {6000, 2550, WindowState::Normal, {6000, 3680, 110}, 435}, // too low
        {2319, 3000, WindowState::Normal, {2319, 3680, 110}, 435}, // too narrow
    };
    for (const auto& [width, height, state, widths, filesHeight] : steps) {
        Size(width, height, state);
        EXPECT_EQ((Numbers{main.lvFolders.Width(), main.lvFolders.ColumnHeaders(1).Width(),
                           main.lvFiles.ColumnHeaders(4).Width()}),
                  widths);
        EXPECT_TRUE(main.picSep.Width() == widths[0] && main.lvFiles.Width() == widths[0]);
        EXPECT_EQ((Numbers{main.lvFolders.Height(), main.lvFiles.Top(), main.lvFiles.Height()}),
                  (Numbers{1485, 2235, filesHeight}));
    }
    // A column that the user makes wider costs the last one its room from the next size on.
    main.lvFiles.ColumnHeaders(1).SetWidth(3000);
    Size(8085, 5490);
    EXPECT_EQ(main.lvFiles.ColumnHeaders(4).Width(), 1195);
}

TEST_F(frmMainLayout, MovesTheBarWithinItsLimits)
{
    // From 2205, between 735 + 1000 and 5160 - 1000.
    const std::pair<float, float> cases[] = {{100, 2305},  {-470, 2205}, {-469, 1736},
                                             {1955, 2205}, {1954, 4159}, {0, 2205}};
    for (const auto& [y, top] : cases) {
        main.picSep.SetTop(2205);
        main.picSep.MouseMove(platform::kLeftButton, 0, 0, y);
        EXPECT_EQ(main.picSep.Top(), top) << y;
    }
}

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
    std::set<const MenuItem*> seen;
    for (const MenuItem* pItem : All(main.form.menus)) {
        EXPECT_TRUE(seen.insert(pItem).second) << pItem->sCaption;
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

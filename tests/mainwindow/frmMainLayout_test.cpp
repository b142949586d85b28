// SPDX-License-Identifier: MIT
#include "MainWindow.h"

namespace {

using platform::WindowState;

using frmMainLayout = MainWindow;
using Numbers = std::vector<float>;

TEST_F(frmMainLayout, SharesOutTheRoomAndKeepsWhatWouldBeBelowZero)
{
    const struct {
        float width, height;
        WindowState state;
        Numbers widths; ///< of a list, and of the columns that take its room
        float filesHeight;
    } steps[] = {
        {8085, 5490, WindowState::Normal, {8085, 5765, 2195}, 2925},
        {19200, 15000, WindowState::Maximized, {19200, 16880, 13310}, 12435},
        {100, 100, WindowState::Minimized, {19200, 16880, 13310}, 12435},
        {5890, 2565, WindowState::Normal, {5890, 3570, 0}, 0},
        {6000, 3000, WindowState::Normal, {6000, 3680, 110}, 435},
        {6000, 2550, WindowState::Normal, {6000, 3680, 110}, 435}, // too low
        {2319, 3000, WindowState::Normal, {2319, 3680, 110}, 435}, // too narrow
    };
    for (const auto& step : steps) {
        Size(step.width, step.height, step.state);
        EXPECT_EQ((Numbers{main.lvFolders.Width(), main.lvFolders.ColumnHeaders(1).Width(),
                           main.lvFiles.ColumnHeaders(4).Width()}),
                  step.widths);
        EXPECT_EQ(main.picSep.Width(), step.widths[0]);
        EXPECT_EQ(main.lvFiles.Width(), step.widths[0]);
        EXPECT_EQ(
            (Numbers{main.lvFolders.Height(), main.picSep.Top(), main.lvFiles.Top(), main.lvFiles.Height()}),
            (Numbers{1485, 2205, 2235, step.filesHeight}));
    }
    // A column that the user makes wider costs the last one its room from the next size on.
    main.lvFiles.ColumnHeaders(1).SetWidth(3000);
    Size(8085, 5490);
    EXPECT_EQ(main.lvFiles.ColumnHeaders(4).Width(), 1195);
}

TEST_F(frmMainLayout, KeepsTheRowsCoveredDuringASearch)
{
    dialogs::theProgressForm().Show();
    Size(19200, 15000, WindowState::Maximized);
    EXPECT_EQ((Numbers{main.lvFake.Left(), main.lvFake.Top(), main.lvFake.Width(), main.lvFake.Height(),
                       main.lvFake.ColumnHeaders(4).Width()}),
              (Numbers{0, 2235, 19200, 12435, 13310}));
    dialogs::theProgressForm().Unload();
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

} // namespace

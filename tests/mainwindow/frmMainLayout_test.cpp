#include "MainWindow.h"

namespace {

using platform::kLeftButton;
using platform::WindowState;

class frmMainLayout : public MainWindow
{
protected:
    using Numbers = std::vector<float>;

    /// The bands from the top: lvFolders' height, the bar's place, lvFiles' place and height.
    Numbers Bands()
    {
        return {main.lvFolders.Height(), main.picSep.Top(), main.lvFiles.Top(), main.lvFiles.Height()};
    }
    Numbers Widths()
    {
        return {main.lvFolders.Width(), main.picSep.Width(), main.lvFiles.Width(),
                main.lvFolders.ColumnHeaders(1).Width(), main.lvFiles.ColumnHeaders(4).Width()};
    }
};

TEST_F(frmMainLayout, SharesOutTheRoomAndKeepsWhatWouldBeBelowZero)
{
    const struct {
        float width, height;
        WindowState state;
        Numbers widths;
        float filesHeight;
    } steps[] = {
        {8085, 5490, WindowState::Normal, {8085, 8085, 8085, 5765, 2195}, 2925},
        {19200, 15000, WindowState::Maximized, {19200, 19200, 19200, 16880, 13310}, 12435},
        {100, 100, WindowState::Minimized, {19200, 19200, 19200, 16880, 13310}, 12435},
        {5890, 2565, WindowState::Normal, {5890, 5890, 5890, 3570, 0}, 0},
        {6000, 3000, WindowState::Normal, {6000, 6000, 6000, 3680, 110}, 435},
        {6000, 2550, WindowState::Normal, {6000, 6000, 6000, 3680, 110}, 435}, // too low
        {2319, 3000, WindowState::Normal, {2319, 2319, 2319, 3680, 110}, 435}, // too narrow
    };
    for (const auto& step : steps) {
        Size(step.width, step.height, step.state);
        EXPECT_EQ(Widths(), step.widths);
        EXPECT_EQ(Bands(), (Numbers{1485, 2205, 2235, step.filesHeight}));
    }
    // A column that the user makes wider costs the last one its room from the next size on.
    main.lvFiles.ColumnHeaders(1).SetWidth(3000);
    Size(8085, 5490);
    EXPECT_EQ(main.lvFiles.ColumnHeaders(4).Width(), 1195);
}

TEST_F(frmMainLayout, MovesTheBarWithinItsLimits)
{
    // From 2205, between 735 + 1000 and 5160 - 1000.
    const std::pair<float, float> cases[] = {{100, 2305},  {-470, 2205}, {-469, 1736},  {-5000, 2205},
                                             {1955, 2205}, {1954, 4159}, {50000, 2205}, {0, 2205}};
    for (const auto& [y, top] : cases) {
        main.picSep.SetTop(2205);
        main.picSep.MouseMove(kLeftButton, 0, 0, y);
        EXPECT_EQ(main.picSep.Top(), top) << y;
    }
}

} // namespace

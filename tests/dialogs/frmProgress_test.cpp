#include "frmProgress.h"

#include "ScriptedShell.h"
#include "mCommon.h"

#include <limits>
#include <stdexcept>

namespace {

using platform::ProgressWindow;

class Progress : public ::testing::Test
{
protected:
    Progress()
    {
        for (auto* pList : {&shell.lvFiles, &shell.lvFake}) {
            for (int n = 0; n < 4; ++n) {
                pList->AddColumn("", platform::Alignment::Left, 100);
            }
        }
    }

    static const ProgressWindow& Window(const platform::Form& form)
    {
        EXPECT_EQ(form.Children().size(), 1U);
        return dynamic_cast<const ProgressWindow&>(*form.Children().at(0));
    }

    support::ScriptedShell shell;
};

TEST_F(Progress, ShowsAValueAsAPercentageOfTheRange)
{
    constexpr float fHuge = std::numeric_limits<float>::max();
    const struct {
        float min, max, value;
        int nPosition;
        float valueBack;
        bool bOverflow = false;
    } cases[] = {
        {0, 100, 0, 0, 0},         {0, 1000, 999, 100, 999},
        {0, 3, 1, 33, 1},          {0, 0, 5, 5, 0}, // an empty range
        {10, 0, 20, 20, -2},                        // an upside-down one
        {50, 150, 75, 75, 75},                      // measured from 0, not from Min
        {0, 100, -5, 0, -5},                        // held at the start
        {0, 10, 25, 100, 25},                       // held at the end
        {0, 200, 1, 0, 1},                          // 0.5, to the even number
        {0, 200, 3, 2, 3},                          // 1.5
        {0, 200, 5, 2, 5},                          // 2.5
        {0, 1, fHuge, 0, 0, true}, {-fHuge, fHuge, 1, 0, 0, true},
        {0, 1, 3e7F, 0, 0, true}, // a position beyond 32 bits
    };
    for (const auto& each : cases) {
        platform::Form form;
        dialogs::cProgressBar bar;
        bar.Create(form.hWnd());
        bar.SetMin(each.min);
        bar.SetMax(each.max);
        if (each.bOverflow) {
            EXPECT_THROW(bar.SetValue(each.value), std::overflow_error) << each.value;
            continue;
        }
        bar.SetValue(each.value);
        EXPECT_EQ(Window(form).Position(), each.nPosition) << each.value << " of " << each.max;
        EXPECT_FLOAT_EQ(bar.Value(), each.valueBack);
    }
}

TEST_F(Progress, KeepsItsRectangleInPixels)
{
    platform::Form form;
    const auto place = [&] {
        const auto& at = Window(form).Place();
        return std::vector<float>{at.Left, at.Top, at.Width, at.Height};
    };
    {
        dialogs::cProgressBar bar;
        bar.SetVisible(true); // there is no window yet
        bar.SetTop(2100);
        bar.SetLeft(37.5); // 2.5 pixels
        bar.Create(form.hWnd());
        EXPECT_EQ(place(), (std::vector<float>{30, 2100, 1500, 300}));
        // A size reaches the window with the next place.
        bar.SetWidth(3000);
        bar.SetHeight(150);
        EXPECT_EQ(place(), (std::vector<float>{30, 2100, 1500, 300}));
        bar.SetLeft(150);
        EXPECT_EQ(place(), (std::vector<float>{150, 2100, 3000, 150}));
        // The screen is asked each time.
        shell.perPixel = 12;
        EXPECT_EQ(bar.Top(), 140 * 12);
        bar.SetVisible(false);
        EXPECT_FALSE(Window(form).Visible());
    }
    EXPECT_TRUE(form.Children().empty()) << "the window outlived its owner";
}

TEST_F(Progress, IsFreshForEachSearchAndCoversTheRows)
{
    auto& progress = dialogs::theProgressForm();
    shell.lvFake.SetVisible(false);
    for (const float width : {1234.0F, 0.0F}) {
        shell.log.clear();
        shell.lvFiles.SetPlace({10, 20, 3000, 400});
        shell.lvFiles.ColumnHeaders(4).SetWidth(width);
        progress.Show();
        EXPECT_EQ(progress.lblStatus.Caption() + progress.lblFolder.Caption() + progress.lblFile.Caption(),
                  "Initializing...");
        EXPECT_EQ(Window(progress.form).Position(), 0);
        EXPECT_EQ(Window(progress.form).Place().Left + Window(progress.form).Place().Width, 210 + 3795);
        EXPECT_TRUE(shell.lvFake.Visible());
        EXPECT_EQ(shell.lvFake.Left() + shell.lvFake.Top() + shell.lvFake.Width() + shell.lvFake.Height(),
                  3430);
        EXPECT_EQ(shell.lvFake.ColumnHeaders(4).Width(), width);
        // What a search leaves.
        progress.lblStatus.SetCaption("Comparing...");
        progress.lblFolder.SetCaption("/a");
        progress.lblFile.SetCaption("b");
        progress.pbProgress().SetMax(2);
        progress.pbProgress().SetValue(1);
        EXPECT_EQ(Window(progress.form).Position(), 50);
        search::bStopped = false;
        progress.cmdCancel.Click();
        EXPECT_TRUE(search::bStopped);
        EXPECT_TRUE(progress.cmdCancel.Enabled());
        progress.Unload();
        EXPECT_FALSE(shell.lvFake.Visible());
        EXPECT_EQ(shell.log,
                  (std::vector<std::string>{"pointer 0", "show Progress owned", "front", "down Progress"}));
    }
}

} // namespace

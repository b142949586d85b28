#include "MainWindow.h"
#include "mCommon.h"

#include <limits>
#include <stdexcept>

namespace {

using platform::ProgressWindow;

class Progress : public MainWindow
{
protected:
    static int Position(const platform::Form& form)
    {
        return dynamic_cast<const ProgressWindow&>(*form.Children().at(0)).Position();
    }
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
        EXPECT_EQ(Position(form), each.nPosition) << each.value << " of " << each.max;
        EXPECT_FLOAT_EQ(bar.Value(), each.valueBack);
    }
}

TEST_F(Progress, IsFreshForEachSearchAndCoversTheRows)
{
    auto& progress = dialogs::theProgressForm();
    for (const float width : {1234.0F, 0.0F}) {
        main.lvFiles.ColumnHeaders(4).SetWidth(width);
        progress.Show();
        EXPECT_EQ(progress.lblStatus.Caption() + progress.lblFolder.Caption() + progress.lblFile.Caption(),
                  "Initializing...");
        EXPECT_EQ(Position(progress.form), 0);
        EXPECT_EQ(main.lvFake.ColumnHeaders(4).Width(), width);
        // What a search leaves.
        for (auto* pLabel : {&progress.lblStatus, &progress.lblFolder, &progress.lblFile}) {
            pLabel->SetCaption("left");
        }
        progress.pbProgress().SetValue(50);
        EXPECT_EQ(Position(progress.form), 50);
        progress.Unload();
        EXPECT_TRUE(progress.form.Children().empty()) << "the bar outlived its owner";
    }
}

} // namespace

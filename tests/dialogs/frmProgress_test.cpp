// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <limits>
#include <stdexcept>

namespace {

using Progress = MainWindow;

int Position(const platform::Form& form)
{
    return dynamic_cast<const platform::ProgressWindow&>(*form.Children().at(0)).Position();
}

TEST_F(Progress, ShowsAValueAsAPercentageOfTheRange)
{
    constexpr float fHuge = std::numeric_limits<float>::max();
    // An empty range, an upside-down one, one that is measured from 0 and not from Min; held at the start and
    // at the end; 0.5, 1.5 and 2.5, each to the even number; beyond what is counted with, position -1.
    const struct {
        float min, max, value;
        int nPosition;
        float valueBack;
    } cases[] = {
        {0, 1000, 999, 100, 999}, {0, 3, 1, 33, 1},    {0, 0, 5, 5, 0},      {10, 0, 20, 20, -2},
        {50, 150, 75, 75, 75},    {0, 100, -5, 0, -5}, {0, 10, 25, 100, 25}, {0, 200, 1, 0, 1},
        {0, 200, 3, 2, 3},        {0, 200, 5, 2, 5},   {0, 1, fHuge, -1, 0}, {-fHuge, fHuge, 1, -1, 0},
        {0, 1, 3e7F, -1, 0},
    };
    for (const auto& [min, max, value, nPosition, valueBack] : cases) {
        platform::Form form;
        dialogs::cProgressBar bar;
        bar.Create(form.hWnd());
        bar.SetMin(min);
        bar.SetMax(max);
        if (nPosition < 0) {
            EXPECT_THROW(bar.SetValue(value), std::overflow_error) << value;
            continue;
        }
        bar.SetValue(value);
        EXPECT_EQ(Position(form), nPosition) << value << " of " << max;
        EXPECT_FLOAT_EQ(bar.Value(), valueBack);
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

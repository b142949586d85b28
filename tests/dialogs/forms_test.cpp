// SPDX-License-Identifier: MIT

#include "MainWindow.h"
#include "mSysTree.h"

#include <limits>
#include <stdexcept>
#include <tuple>

namespace {

/// The Add Folder window, over a dialog in which the user selects items.
class Browse : public MainWindow
{
protected:
    void AddFolder(const std::function<void()>& whileOpen)
    {
        desktop.whileBrowsing = [&] {
            whileOpen();
            form.cmdClose.Click();
            form.form.UnloadForm(); // not twice, whatever is pressed while the window goes
        };
        form.form.Show(false, &main.form);
        dialogs::oHost = &form.picBrowse;
        dialogs::ShowSysTree("");
    }

    /// What is said when this item is selected and added.
    std::string SaidOfAdding(long item)
    {
        desktop.browseRequest.lpfn(&m_dialog, platform::BFFM_SELCHANGED, item, 0);
        desktop.sWindows.clear();
        form.cmdAdd.Click();
        return desktop.sWindows;
    }

    dialogs::frmBrowse& form = dialogs::theBrowseForm();
    platform::NativeWindow m_dialog;
};

TEST_F(Browse, AddsTheSelectedFolderAsOftenAsAsked)
{
    const std::string sLong = "/" + std::string(300, 'x');
    const std::string sTwice = "; message This folder is already in the list.";
    desktop.paths = {{1, "/a"}, {2, ""}, {3, sLong}, {4, "/b\xFF"}, {5, "/c"}};
    desktop.files.links = {{"/c", "/a"}};
    desktop.label.sLabel = "Disk";
    AddFolder([&] {
        EXPECT_FALSE(main.form.Enabled());
        EXPECT_EQ(SaidOfAdding(1), "");
        EXPECT_EQ(SaidOfAdding(1), sTwice);
        EXPECT_EQ(SaidOfAdding(5), sTwice); // by a link
        desktop.label.sLabel = "";
        EXPECT_EQ(SaidOfAdding(3), "");
        EXPECT_EQ(SaidOfAdding(99), sTwice); // what the shell has no path for leaves everything as it was
        desktop.label = {"Disk", "Gone"};    // the volume: the row stays, without a label
        EXPECT_EQ(SaidOfAdding(4), "; message Gone.");
        EXPECT_EQ(SaidOfAdding(2), ""); // what is no folder cannot be added
        EXPECT_FALSE(form.cmdAdd.Enabled());
    });
    EXPECT_EQ(Texts(main.lvFolders), "/a" + sLong + "/b\xFF");
    EXPECT_EQ(main.lvFolders.ListItems(1).SubItems(1), "Disk");
    EXPECT_EQ(main.lvFolders.ListItems(3).SubItems(1), "");
    EXPECT_TRUE(main.form.Enabled());
    EXPECT_EQ(desktop.sWindows, "; front; down Browse for Folder");
    AddFolder([&] { EXPECT_TRUE(dialogs::sSelectedFolder[0] == '\0' && form.cmdAdd.Enabled()); }); // anew
    EXPECT_EQ(main.lvFolders.ListItems.Count(), 3U);
}

using Progress = MainWindow;

int Position(const platform::Form& form)
{
    return dynamic_cast<const platform::NativeProgressBar&>(*form.Children().at(0)).Position();
}

TEST_F(Progress, ShowsAValueAsAPercentageOfTheRange)
{
    constexpr float fHuge = std::numeric_limits<float>::max();
    // An empty range, an upside-down one, one that is measured from 0 and not from Min; held at the start and
    // at the end; 0.5 and 1.5, each to the even number; beyond what is counted with, position -1.
    const std::tuple<float, float, float, int, float> cases[] = {
        {0, 1000, 999, 100, 999}, {0, 3, 1, 33, 1},     {0, 0, 5, 5, 0},           {10, 0, 20, 20, -2},
        {50, 150, 75, 75, 75},    {0, 100, -5, 0, -5},  {0, 10, 25, 100, 25},      {0, 200, 1, 0, 1},
        {0, 200, 3, 2, 3},        {0, 1, fHuge, -1, 0}, {-fHuge, fHuge, 1, -1, 0}, {0, 1, 3e7F, -1, 0},
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
    for (const float width : {1234.0F, 0.0F}) {
        main.lvFiles.ColumnHeaders(4).SetWidth(width);
        progress.Show();
        EXPECT_EQ(progress.lblStatus.Caption() + progress.lblFolder.Caption() + progress.lblFile.Caption(),
                  "Initializing...");
        EXPECT_EQ(Position(progress.form), 0);
        EXPECT_EQ(main.lvFake.ColumnHeaders(4).Width(), width);
        progress.lblStatus.SetCaption("left"); // by a search
        progress.pbProgress().SetValue(50);
        progress.Unload();
        EXPECT_TRUE(progress.form.Children().empty()) << "the bar outlived its owner";
    }
}

} // namespace

// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "mCommon.h"
#include "mListView.h"

#include <optional>
#include <tuple>

namespace {

using frmMainLists = MainWindow;

TEST_F(frmMainLists, ActOnKeysWithExactlyTheirMask)
{
    const std::tuple<int, int, const char*> cases[] = {
        {65, 2, "xy[z]|[a][b]"}, {17, 2, "xy[z]|[a][b]"}, {65, 0, "x[y]z|ab"}, {65, 3, "x[y]z|ab"},
        {65, 6, "x[y]z|ab"},     {66, 2, "x[y]z|ab"},     {46, 0, "x[z]|ab"},  {46, 7, "x[z]|ab"},
    };
    for (const auto& [KeyCode, Shift, pAfter] : cases) {
        main.lvFolders.ListItems.Clear();
        main.lvFiles.ListItems.Clear();
        Add(main.lvFolders, {"x", "y", "z"});
        Add(main.lvFiles, {"a", "b"});
        main.lvFolders.ListItems(2).SetSelected(true);
        main.lvFolders.KeyUp(KeyCode, Shift);
        main.lvFiles.KeyUp(KeyCode, Shift);
        EXPECT_EQ(Texts(main.lvFolders) + "|" + Texts(main.lvFiles), pAfter) << KeyCode << Shift;
        EXPECT_EQ(!Asked().empty(), KeyCode == 46) << "files are deleted by Delete alone";
    }
}

TEST_F(frmMainLists, RememberWhetherTheLastPressHitARow)
{
    Add(main.lvFiles, {"a"});
    EXPECT_FALSE(main.bItemHit);
    for (const int Button : {1, 2, 4}) {
        desktop.rowAtMouse = 0;
        main.lvFiles.MouseDown(Button, 0, 50, 50);
        desktop.rowAtMouse.reset();
        main.lvFiles.MouseUp(Button, 0, 50, 50);
        EXPECT_TRUE(main.bItemHit);
        main.lvFiles.MouseDown(Button, 0, 50, 50);
        EXPECT_FALSE(main.bItemHit);
    }
    EXPECT_EQ(desktop.sWindows, "; menu &File"); // of the right button, over nothing
    bool bCommandsAct = false;
    desktop.onMenu = [&] { bCommandsAct = main.bItemHit; };
    main.lvFiles.MenuKey();
    EXPECT_EQ(desktop.sWindows, "; menu &File; menu &File at the row");
    EXPECT_TRUE(bCommandsAct && !main.bItemHit);
}

TEST_F(frmMainLists, RemoveTheSelectedRowsAndLeaveTheCurrentOneSelected)
{
    // Which rows are selected, the current one, and what comes of it in lvFiles, which takes several.
    const std::tuple<std::string, std::size_t, const char*, std::optional<std::size_t>> cases[] = {
        {"+", 0, "", {}},      {"---", 1, "a[b]c", 1},   {"+--", 0, "[b]c", 0},  {"--+", 2, "a[b]", 1},
        {"--+", 0, "[a]b", 0}, {"-+-+-", 4, "ac[e]", 2}, {"-++++", 2, "[a]", 0}, {"+--+", 1, "[b]c", 0},
    };
    for (const auto& [sSelected, nCurrent, pAfter, rowShown] : cases) {
        main.lvFiles.ListItems.Clear();
        for (std::size_t n = 0; n < sSelected.size(); ++n) {
            const std::string sName(1, "abcde"[n]);
            main.lvFiles.ListItems.Add(sName, sName, 1);
        }
        Select(sSelected);
        main.lvFiles.SetSelectedItem(nCurrent);
        desktop.rowShown.reset();
        results::RemoveSelectedItems(main.lvFiles);
        EXPECT_EQ(Texts(main.lvFiles), pAfter) << sSelected;
        EXPECT_EQ(desktop.rowShown, rowShown) << sSelected;
    }
}

TEST_F(frmMainLists, StartOverInANewSearch)
{
    Add(main.lvFolders, {"/a"});
    Add(main.lvFiles, {"f"});
    main.CheckMenu();
    main.StatusBar1.Panels(2).SetText("1");
    search::FileCount = 7;
    desktop.whileBrowsing = [&] {
        EXPECT_EQ(State(), "||Add at least one folder|0");
        EXPECT_EQ(search::FileCount, 0);
        EXPECT_FALSE(main.form.Enabled());
        Add(main.lvFolders, {"/b"});
        dialogs::theBrowseForm().form.UnloadForm();
    };
    main.mnuSearchNew.Click();
    EXPECT_EQ(desktop.sWindows,
              "; lock; unlock; show Browse for Folder owned; refresh Browse for Folder; browse"
              "; front; down Browse for Folder");
    EXPECT_EQ(State(), "/b||Ready|0");
    EXPECT_TRUE(main.mnuFileOpen.Enabled()); // until the next operation
}

TEST_F(frmMainLists, SortRemoveAndClear)
{
    main.StatusBar1.Panels(1).SetText("Done");
    main.mnuSearchRemove.Click(); // nothing there
    EXPECT_EQ(State(), "||Add at least one folder|0");
    Add(main.lvFolders, {"y", "x", "z"});
    Add(main.lvFiles, {"f"});
    for (const char* pAfter : {"zyx", "xyz", "zyx", "xyz"}) {
        main.lvFolders.ColumnClick();
        EXPECT_EQ(Texts(main.lvFolders), pAfter) << "each click sorts the other way";
    }
    main.lvFolders.SetSelectedItem(1);
    main.mnuSearchRemove.Click(); // the current row, though not selected
    EXPECT_EQ(State(), "x[z]|f|Ready|0");
    main.StatusBar1.Panels(1).SetText("Done");
    main.StatusBar1.Panels(2).SetText("1");
    main.mnuSearchClearResults.Click();
    EXPECT_EQ(State(), "x[z]||Ready|1"); // the count is that of the last search
    main.mnuSearchClearFolders.Click();
    EXPECT_EQ(State(), "||Add at least one folder|1");
}

TEST_F(frmMainLists, SelectByRule)
{
    ASSERT_TRUE(main.lvFolders.SetFocus());
    main.mnuSelectAll.Click(); // of nothing
    main.mnuSelectPath.Click();
    EXPECT_EQ(main.form.ActiveControl(), &main.lvFolders);
    EXPECT_EQ(desktop.sWindows, "");
    Row("/home/a/", "one", 2, "0");
    Row("/home/a/", "two", 3, "1,000");
    Row("/media/disk/a/", "two", 4, "0");
    Row("/home/A/", "red", 5, "10");
    Row("/home/a/b/", "red", 6, "0");
    Row("/home/a/", "gone", 7, "00");
    // Which row is current, counted from 0; the rows selected before; the marks after.
    const std::tuple<platform::MenuItem&, std::size_t, const char*, const char*> cases[] = {
        {main.mnuSelectDuplicatedFiles, 0, "+-----", "-2+3+4+5+6+7"},
        {main.mnuSelectEmptyFiles, 0, "-+-+-+", "+2-3+4-5+6-7"},
        {main.mnuSelectDrive, 4, "--+---", "+2+3-4+5+6+7"},
        {main.mnuSelectDrive, 2, "++++++", "-2-3+4-5-6-7"},
        {main.mnuSelectPath, 5, "--++--", "+2+3-4-5-6+7"},
        {main.mnuSelectAll, 0, "-+----", "+2+3+4+5+6+7"},
        {main.mnuSelectInvert, 0, "-+--+-", "+2-3+4+5-6+7"},
        {main.mnuSelectNone, 0, "-+--+-", "-2-3-4-5-6-7"},
    };
    for (const auto& [item, nCurrent, pBefore, pAfter] : cases) {
        Select(pBefore);
        main.lvFiles.SetSelectedItem(nCurrent);
        desktop.sWindows.clear();
        item.Click();
        EXPECT_EQ(Marks(), pAfter) << item.sCaption;
        EXPECT_EQ(main.lvFiles.SelectedItem()->Index(), nCurrent + 1) << item.sCaption;
        EXPECT_EQ(main.form.ActiveControl(), &main.lvFiles);
        EXPECT_TRUE(desktop.sWindows.starts_with("; lock") && desktop.sWindows.ends_with("; unlock"));
    }
}

} // namespace

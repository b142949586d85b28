#include "MainWindow.h"
#include "ScriptedRows.h"
#include "mCommon.h"

namespace {

class frmMainLists : public MainWindow
{
};

TEST_F(frmMainLists, ActOnKeysWithExactlyTheirMask)
{
    const struct {
        int KeyCode, Shift;
        const char* pAfter;
    } cases[] = {
        {65, 2, "xy[z]|[a][b]|"}, {17, 2, "xy[z]|[a][b]|"}, {65, 0, "x[y]z|ab|"},
        {17, 0, "x[y]z|ab|"},     {65, 3, "x[y]z|ab|"},     {65, 6, "x[y]z|ab|"},
        {66, 2, "x[y]z|ab|"},     {46, 0, "[x]z|ab|"},      {46, 7, "[x]z|ab|"},
    };
    for (const auto& each : cases) {
        main.lvFolders.ListItems.Clear();
        main.lvFiles.ListItems.Clear();
        Add(main.lvFolders, {"x", "y", "z"});
        Add(main.lvFiles, {"a", "b"});
        main.lvFolders.ListItems(2).SetSelected(true);
        main.lvFolders.KeyUp(each.KeyCode, each.Shift);
        main.lvFiles.KeyUp(each.KeyCode, each.Shift);
        // Delete acts on the files too, and its operation leaves its word behind.
        const bool bDelete = each.KeyCode == 46;
        EXPECT_EQ(State(), each.pAfter + std::string(bDelete ? "Done|0" : "Add at least one folder|0"))
            << each.KeyCode << each.Shift;
        EXPECT_EQ(std::exchange(desktop.log, {}).size(), bDelete ? 1U : 0U);
        main.StatusBar1.Panels(1).SetText("Add at least one folder");
    }
}

TEST_F(frmMainLists, RememberWhetherTheLastPressHitARow)
{
    support::ScriptedRows rows;
    main.lvFiles.ObserveRows(&rows);
    Add(main.lvFiles, {"a"});
    EXPECT_FALSE(main.bItemHit);
    for (const int Button : {1, 2, 4}) {
        rows.rowAtMouse = 0;
        main.lvFiles.MouseDown(Button, 0, 50, 50);
        rows.rowAtMouse.reset();
        main.lvFiles.MouseUp(Button, 0, 50, 50);
        EXPECT_TRUE(main.bItemHit);
        main.lvFiles.MouseDown(Button, 0, 50, 50);
        EXPECT_FALSE(main.bItemHit);
    }
    EXPECT_EQ(desktop.sWindows, "; menu &File"); // of the right button, over nothing
    main.lvFiles.MenuKey();
    EXPECT_EQ(desktop.sWindows, "; menu &File; menu &File at the row");
    EXPECT_FALSE(main.bItemHit);
    main.lvFiles.ObserveRows(nullptr);
}

TEST_F(frmMainLists, SortFoldersTheOtherWayAtEachClick)
{
    Add(main.lvFolders, {"b", "c", "a"});
    for (const char* pAfter : {"cba", "abc", "cba"}) {
        main.lvFolders.ColumnClick();
        EXPECT_TRUE(State().starts_with(pAfter)) << State();
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

TEST_F(frmMainLists, RemoveAndClear)
{
    main.StatusBar1.Panels(1).SetText("Done");
    main.mnuSearchRemove.Click(); // nothing there
    EXPECT_EQ(State(), "||Add at least one folder|0");
    Add(main.lvFolders, {"x", "y", "z"});
    Add(main.lvFiles, {"f"});
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

} // namespace

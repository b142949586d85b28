#include "MainWindow.h"

namespace {

class frmMainSelect : public MainWindow
{
protected:
    frmMainSelect()
    {
        Row("/home/a/", "one", 2, "0");
        Row("/home/a/", "two", 3, "1,000");
        Row("/media/disk/a/", "two", 4, "0");
        Row("/home/A/", "red", 5, "10");
        Row("/home/a/b/", "red", 6, "0");
        Row("/home/a/", "gone", 7, "00");
        desktop.sWindows.clear();
    }
};

TEST_F(frmMainSelect, SelectsByRule)
{
    struct tCase {
        const char* pName;
        platform::MenuItem& item;
        std::size_t nCurrent; ///< counted from 0
        const char* pBefore;
        const char* pAfter;
    };
    const tCase cases[] = {
        {"duplicates", main.mnuSelectDuplicatedFiles, 0, "+-----", "-+++++"},
        {"duplicates again", main.mnuSelectDuplicatedFiles, 0, "-+++++", "-+++++"},
        {"empty", main.mnuSelectEmptyFiles, 0, "-+-+-+", "+-+-+-"},
        {"drive of home", main.mnuSelectDrive, 4, "--+---", "++-+++"},
        {"drive of disk", main.mnuSelectDrive, 2, "++++++", "--+---"},
        {"path", main.mnuSelectPath, 5, "--++--", "++---+"},
        {"all", main.mnuSelectAll, 0, "-+----", "++++++"},
        {"invert", main.mnuSelectInvert, 0, "-+--+-", "+-++-+"},
        {"invert all", main.mnuSelectInvert, 0, "++++++", "------"},
        {"none", main.mnuSelectNone, 0, "-+--+-", "------"},
    };
    for (const tCase& c : cases) {
        Select(c.pBefore);
        main.lvFiles.SetSelectedItem(c.nCurrent);
        desktop.sWindows.clear();
        c.item.Click();
        EXPECT_EQ(Selected(), c.pAfter) << c.pName;
        EXPECT_EQ(main.lvFiles.SelectedItem()->Index(), c.nCurrent + 1) << c.pName;
        EXPECT_EQ(main.form.ActiveControl(), &main.lvFiles) << c.pName;
        EXPECT_TRUE(desktop.sWindows.starts_with("; lock") && desktop.sWindows.ends_with("; unlock"))
            << c.pName;
    }
    EXPECT_EQ(Marks(), "234567");
}

TEST_F(frmMainSelect, LeavesAnEmptyListAlone)
{
    main.lvFiles.ListItems.Clear();
    ASSERT_TRUE(main.lvFolders.SetFocus());
    for (const platform::MenuItem* pItem : main.mnuSelect.items) {
        if (pItem->Click) {
            pItem->Click();
        }
    }
    EXPECT_EQ(main.form.ActiveControl(), &main.lvFolders);
    EXPECT_EQ(desktop.sWindows, "");
}

} // namespace

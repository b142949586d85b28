// SPDX-License-Identifier: MIT
#include "MainWindow.h"

namespace {

using frmMainSelect = MainWindow;

TEST_F(frmMainSelect, SelectsByRule)
{
    Row("/home/a/", "one", 2, "0");
    Row("/home/a/", "two", 3, "1,000");
    Row("/media/disk/a/", "two", 4, "0");
    Row("/home/A/", "red", 5, "10");
    Row("/home/a/b/", "red", 6, "0");
    Row("/home/a/", "gone", 7, "00");
    const struct {
        platform::MenuItem& item;
        std::size_t nCurrent; ///< counted from 0
        const char *pBefore, *pAfter;
    } cases[] = {
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
        EXPECT_EQ(main.form.ActiveControl(), &main.lvFiles) << item.sCaption;
        EXPECT_TRUE(desktop.sWindows.starts_with("; lock") && desktop.sWindows.ends_with("; unlock"));
    }
}

TEST_F(frmMainSelect, LeavesAnEmptyListAlone)
{
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

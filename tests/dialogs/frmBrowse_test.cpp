// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "mSysTree.h"

namespace {

/// The Add Folder window, over a dialog in which the user selects items.
class Browse : public MainWindow
{
protected:
    /// What the main form's command does.
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
    platform::Control m_dialog;
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
    // The next opening starts anew, but for the list.
    AddFolder([&] {
        EXPECT_EQ(dialogs::sSelectedFolder, std::string(1, '\0'));
        EXPECT_TRUE(form.cmdAdd.Enabled());
    });
    EXPECT_EQ(main.lvFolders.ListItems.Count(), 3U);
}

} // namespace

#include "MainWindow.h"
#include "mSysTree.h"

namespace {

using Log = std::vector<std::string>;

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

    void SelectItem(long item) { desktop.browseRequest.lpfn(&m_dialog, platform::BFFM_SELCHANGED, item, 0); }

    /// What is said when this item is added.
    std::string SaidOfAdding(long item)
    {
        SelectItem(item);
        desktop.sWindows.clear();
        form.cmdAdd.Click();
        return desktop.sWindows;
    }

    /// The folders listed, each with its label.
    Log Rows()
    {
        Log rows;
        for (std::size_t n = 1; n <= main.lvFolders.ListItems.Count(); ++n) {
            auto row = main.lvFolders.ListItems(n);
            rows.push_back(row.Key() + "|" + std::string(row.SubItems(1)));
        }
        return rows;
    }

    dialogs::frmBrowse& form = dialogs::theBrowseForm();

private:
    platform::Control m_dialog;
};

TEST_F(Browse, AddsTheSelectedFolderAsOftenAsAsked)
{
    const std::string sLong = "/" + std::string(300, 'x');
    desktop.paths = {{1, "/a"}, {2, ""}, {3, sLong}, {4, "/b\xFF"}, {5, "/c"}};
    desktop.files.links = {{"/c", "/a"}};
    desktop.label.sLabel = "Disk";
    AddFolder([&] {
        EXPECT_FALSE(main.form.Enabled());
        EXPECT_EQ(SaidOfAdding(1), "");
        for (const long item : {1, 5}) { // again, and by a link
            EXPECT_EQ(SaidOfAdding(item), "; message This folder is already in the list.");
        }
        // What the shell has no path for leaves everything as it was.
        desktop.label.sLabel = "";
        EXPECT_EQ(SaidOfAdding(3), "");
        SelectItem(99);
        EXPECT_EQ(dialogs::sSelectedFolder, sLong);
        // The volume has gone: the row stays, without a label.
        desktop.label.sError = "Gone";
        EXPECT_EQ(SaidOfAdding(4), "; message Gone.");
        EXPECT_EQ(Rows(), (Log{"/a|Disk", sLong + "|", "/b\xFF|"}));
        // What is no folder cannot be added.
        EXPECT_EQ(SaidOfAdding(2), "");
        EXPECT_FALSE(form.cmdAdd.Enabled());
    });
    EXPECT_TRUE(main.form.Enabled());
    EXPECT_EQ(desktop.sWindows, "; front; down Browse for Folder");
    // The next opening starts anew, but for the list.
    AddFolder([&] {
        EXPECT_EQ(dialogs::sSelectedFolder, std::string(1, '\0'));
        EXPECT_TRUE(form.cmdAdd.Enabled());
    });
    EXPECT_EQ(Rows().size(), 3U);
}

} // namespace

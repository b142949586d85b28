#include "frmBrowse.h"

#include "ScriptedShell.h"
#include "mSysTree.h"

namespace {

using Log = std::vector<std::string>;

class Browse : public ::testing::Test
{
protected:
    /// What the main form's command does.
    void AddFolder()
    {
        form.form.Show(false, &shell.form);
        dialogs::oHost = &form.picBrowse;
        dialogs::ShowSysTree("");
    }

    /// The folders listed, each with its label.
    Log Rows()
    {
        Log rows;
        for (std::size_t n = 1; n <= shell.lvFolders.ListItems.Count(); ++n) {
            auto row = shell.lvFolders.ListItems(n);
            EXPECT_EQ(row.Key(), row.Text());
            rows.push_back(std::string(row.Text()) + "|" + std::string(row.SubItems(1)));
        }
        return rows;
    }

    support::ScriptedShell shell;
    dialogs::frmBrowse& form = dialogs::theBrowseForm();
};

TEST_F(Browse, BorrowsTheTreeAndGivesItBack)
{
    shell.whileOpen = [&] {
        EXPECT_FALSE(shell.form.Enabled());
        ASSERT_EQ(form.picBrowse.Children().size(), 1U);
        auto& tree = *form.picBrowse.Children()[0];
        EXPECT_EQ(tree.ClassName(), "SysTreeView32");
        EXPECT_EQ(tree.Left() + tree.Top() + tree.Width() + tree.Height(), 4320 + 3165);
        form.cmdClose.Click();
        // Not twice, whatever is pressed while the window goes.
        form.form.UnloadForm();
    };
    for (int n = 0; n < 2; ++n) { // a new dialog each time
        shell.log.clear();
        AddFolder();
        // Two moves reach the dialog by its own procedure, both hidden from the first one of the shell's on.
        EXPECT_EQ(shell.log,
                  (Log{"disabled", "show Browse for Folder owned", "dialog 3 0", "dialog 1126 1 \"\"",
                       "SysTreeView32 3 0", "dialog 3 0 hidden", "dialog 3 0 hidden", "enabled",
                       "dialog 16 1 hidden", "dialog 2 0 hidden", "front", "down Browse for Folder"}));
        EXPECT_EQ(shell.info.ulFlags, 5U);
        EXPECT_TRUE(form.picBrowse.Children().empty());
    }
}

TEST_F(Browse, AddsTheSelectedFolderAsOftenAsAsked)
{
    const std::string sLong = "/" + std::string(300, 'x');
    shell.paths = {{1, "/a"}, {2, ""}, {3, sLong}, {4, "/b\xFF"}, {5, "/c"}};
    shell.whileOpen = [&] {
        EXPECT_TRUE(form.cmdAdd.Enabled());
        shell.sLabel = "Disk";
        const auto addOf = [&](long item) {
            shell.Select(item);
            shell.log.clear();
            form.cmdAdd.Click();
        };
        addOf(1);
        EXPECT_EQ(Rows(), Log{"/a|Disk"});
        EXPECT_EQ(shell.log, Log{});
        // Again: refused, and said.
        addOf(1);
        EXPECT_EQ(shell.log, Log{"48 This folder is already in the list."});
        // Neither can it come in again by a link.
        shell.files.links = {{"/c", "/a"}};
        addOf(5);
        EXPECT_EQ(shell.log, Log{"48 This folder is already in the list."});
        shell.files.links.clear();
        // What is no folder cannot be added.
        addOf(2);
        EXPECT_FALSE(form.cmdAdd.Enabled());
        EXPECT_EQ(shell.log, Log{});
        // What the shell has no path for leaves everything as it was.
        shell.Select(99);
        EXPECT_EQ(dialogs::sSelectedFolder, "");
        shell.sLabel = "";
        addOf(3);
        EXPECT_TRUE(form.cmdAdd.Enabled());
        shell.Select(99);
        EXPECT_EQ(dialogs::sSelectedFolder, sLong);
        // The volume has gone: the row stays, without a label.
        shell.sLabelError = "Gone";
        addOf(4);
        EXPECT_EQ(shell.log, Log{"48 Gone."});
        EXPECT_EQ(Rows(), (Log{"/a|Disk", sLong + "|", "/b\xFF|"}));
        shell.Select(5);
        form.form.UnloadForm();
    };
    AddFolder();
    EXPECT_EQ(dialogs::sSelectedFolder, "/c");
    // The next opening starts anew, but for the list.
    shell.whileOpen = [&] {
        EXPECT_EQ(dialogs::sSelectedFolder, std::string(1, '\0'));
        shell.Select(2);
        form.cmdClose.Click();
    };
    AddFolder();
    EXPECT_EQ(Rows().size(), 3U);
    // A button disabled by the last selection is enabled again when the window opens.
    shell.whileOpen = [&] {
        EXPECT_TRUE(form.cmdAdd.Enabled());
        form.cmdClose.Click();
    };
    AddFolder();
}

TEST_F(Browse, SurvivesADialogWithoutATree)
{
    shell.classes = {"Static"};
    shell.whileOpen = [&] { form.cmdClose.Click(); };
    AddFolder();
    EXPECT_TRUE(shell.form.Enabled());
    EXPECT_EQ(shell.log.back(), "down Browse for Folder");
}

} // namespace

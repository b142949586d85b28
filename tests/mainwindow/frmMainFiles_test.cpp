// SPDX-License-Identifier: MIT
#include "MainWindow.h"

namespace {

class frmMainFiles : public MainWindow
{
protected:
    frmMainFiles()
    {
        Row("/d/a/", "x", 2);
        Row("/d/b/", "x", 3);
        Row("/d/c/", "y", 4);
    }

    /// Has files go while the shell works, which must find the form disabled.
    void LetGo(std::initializer_list<std::string> paths)
    {
        desktop.duringRequest = [this, gone = std::vector(paths)] {
            EXPECT_FALSE(main.form.Enabled());
            for (const std::string& sPath : gone) {
                desktop.files.files.erase(sPath);
            }
        };
    }
};

TEST_F(frmMainFiles, DeletesWhatIsSelectedAndThere)
{
    Select("-++");
    desktop.files.files.erase("/d/b/x"); // behind the program's back
    LetGo({"/d/a/x", "/d/c/y"});
    desktop.nShellResult = 1;
    main.lvFiles.KeyUp(46, 0);
    EXPECT_EQ(Marks(), "-2+3+4") << "marks change only after a request carried out";
    desktop.nShellResult = 0;
    desktop.files.files["/d/c/y"];
    main.lvFiles.KeyUp(46, 0);
    EXPECT_EQ(Asked(), "request 3 flags 320 /d/c/y0 > \nrequest 3 flags 320 /d/c/y0 > \n");
    EXPECT_EQ(Marks(), "-2+6+7") << "only those of selected rows";
    EXPECT_TRUE(main.form.Enabled());
    EXPECT_EQ(Status(), "Done");
    EXPECT_TRUE(desktop.sWindows.ends_with("; lock; unlock; front")) << desktop.sWindows;

    // A file that has come back is taken again, and its mark stays.
    desktop.files.files["/d/b/x"];
    LetGo({});
    main.mnuFileDelete.Click();
    EXPECT_EQ(Asked(), "request 3 flags 320 /d/b/x0 > \n");
    EXPECT_EQ(Marks(), "-2+6+7");
}

TEST_F(frmMainFiles, MovesAndCopiesToAChosenFolder)
{
    const std::string sMove =
        "browse Select the folder that you want to move selected files to.\n1126 1 /d/b/0\n";
    const std::string sCopy =
        "browse Select the folder that you want to copy selected files to.\n1126 1 /d/b/0\n";
    Select("+-+");
    main.lvFiles.SetSelectedItem(1);
    desktop.sChosenFolder = "/";
    LetGo({"/d/a/x"});
    main.mnuFileMoveTo.Click();
    EXPECT_EQ(Asked(), sMove + "free 7\nrequest 1 flags 257 /d/a/x0/d/c/y0 > /x0/y0\n");
    EXPECT_EQ(Marks(), "+5-3+4");

    // The list of destinations names each file that is still there, and a copy finds what has gone.
    desktop.sChosenFolder = std::string(300, 'f');
    LetGo({"/d/c/y"});
    main.mnuFileCopyTo.Click();
    EXPECT_EQ(Asked(), sCopy + "free 7\nrequest 2 flags 257 /d/c/y0 > " + desktop.sChosenFolder + "/y0\n");
    EXPECT_EQ(Marks(), "+5-3+7");

    desktop.sChosenFolder.clear();
    main.StatusBar1.Panels(1).SetText("as before");
    main.mnuFileMoveTo.Click();
    EXPECT_EQ(Asked(), sMove + "free 0\n");
    main.lvFiles.ListItems.Clear();
    for (auto* pItem : {&main.mnuFileDelete, &main.mnuFileMoveTo, &main.mnuFileCopyTo}) {
        pItem->Click();
    }
    EXPECT_EQ(Asked() + Status(), "as before");
}

} // namespace

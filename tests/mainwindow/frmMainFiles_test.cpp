#include "MainWindow.h"
#include "mCommon.h"

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
    LetGo({"/d/c/y"});
    main.lvFiles.KeyUp(46, 0);
    EXPECT_EQ(Asked(), "request 3 flags 320 /d/c/y0 > \n");
    EXPECT_EQ(Marks(), "267");
    EXPECT_EQ(Selected(), "-++");
    EXPECT_TRUE(main.form.Enabled());
    EXPECT_EQ(main.StatusBar1.Panels(1).Text(), "Done");
    EXPECT_TRUE(desktop.sWindows.ends_with("; lock; unlock; front")) << desktop.sWindows;

    // A file that has come back is taken again, and its mark stays.
    desktop.files.files["/d/b/x"];
    LetGo({});
    main.mnuFileDelete.Click();
    EXPECT_EQ(Asked(), "request 3 flags 320 /d/b/x0 > \n");
    EXPECT_EQ(Marks(), "267");
}

TEST_F(frmMainFiles, LooksOnlyAtSelectedRowsAndOnlyAfterARequestCarriedOut)
{
    Select("--+");
    LetGo({"/d/a/x", "/d/c/y"});
    desktop.nShellResult = 1;
    main.mnuFileDelete.Click();
    EXPECT_EQ(Marks(), "234");
    desktop.nShellResult = 0;
    main.mnuFileDelete.Click();
    EXPECT_EQ(Asked(), "request 3 flags 320 /d/c/y0 > \nrequest 3 flags 320  > \n");
    EXPECT_EQ(Marks(), "237");
}

TEST_F(frmMainFiles, MovesAndCopiesToAChosenFolder)
{
    const std::string sMove = "browse Select the folder that you want to move selected files to.\n";
    const std::string sCopy = "browse Select the folder that you want to copy selected files to.\n";
    Select("+-+");
    main.lvFiles.SetSelectedItem(1);
    desktop.sChosenFolder = "/";
    LetGo({"/d/a/x"});
    main.mnuFileMoveTo.Click();
    EXPECT_EQ(Asked(), sMove + "1126 1 /d/b/0\nfree 7\nrequest 1 flags 257 /d/a/x0/d/c/y0 > /x0/y0\n");
    EXPECT_EQ(Marks(), "534");

    // The list of destinations names each file that is still there, and a copy finds what has gone.
    desktop.sChosenFolder = std::string(300, 'f');
    LetGo({"/d/c/y"});
    main.mnuFileCopyTo.Click();
    EXPECT_EQ(Asked(), sCopy + "1126 1 /d/b/0\nfree 7\nrequest 2 flags 257 /d/c/y0 > " +
                           desktop.sChosenFolder + "/y0\n");
    EXPECT_EQ(Marks(), "537");

    desktop.sChosenFolder.clear();
    search::SetWorking(false);
    main.StatusBar1.Panels(1).SetText("as before");
    main.mnuFileMoveTo.Click();
    EXPECT_EQ(Asked(), sMove + "1126 1 /d/b/0\nfree 0\n");
    EXPECT_EQ(main.StatusBar1.Panels(1).Text(), "as before");

    main.lvFiles.ListItems.Clear();
    for (auto* pItem : {&main.mnuFileDelete, &main.mnuFileMoveTo, &main.mnuFileCopyTo}) {
        pItem->Click();
    }
    EXPECT_EQ(Asked(), "");
}

} // namespace

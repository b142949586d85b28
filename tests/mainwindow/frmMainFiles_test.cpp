// SPDX-License-Identifier: MIT
#include "FileTime.h"
#include "MainWindow.h"
#include "Texts.h"
#include "mAPIError.h"
#include "mFileDialog.h"

#include <algorithm>

namespace {

const std::string kOdd = "/d/c/y\"\n", kQuoted = '"' + kOdd + '"';

class frmMainFiles : public MainWindow
{
protected:
    frmMainFiles()
    {
        Row("/d/a/", "x", 2);
        Row("/d/b/", "x", 3);
        Row("/d/c/", "y\"\n", 4);
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
    LetGo({"/d/a/x", kOdd});
    desktop.nShellResult = 1;
    main.lvFiles.KeyUp(46, 0);
    EXPECT_EQ(Marks(), "-2+3+4") << "marks change only after a request carried out";
    desktop.nShellResult = 0;
    desktop.files.files[kOdd];
    main.lvFiles.KeyUp(46, 0);
    EXPECT_EQ(Asked(), "request 3 flags 320 " + kOdd + "0 > \nrequest 3 flags 320 " + kOdd + "0 > \n");
    EXPECT_EQ(Marks(), "-2+6+7") << "only those of selected rows";
    EXPECT_EQ(Status(), "Done");
    EXPECT_TRUE(main.form.Enabled() && desktop.sWindows.ends_with("; lock; unlock; front"));

    desktop.bWaits = false;
    main.mnuFileDelete.Click();
    EXPECT_EQ(Asked() + Marks(), "-2+6+7") << "nothing without a disk's answer";
    desktop.bWaits = true;

    // A file that has come back is taken again, and its mark stays.
    desktop.files.files["/d/b/x"];
    LetGo({});
    main.mnuFileDelete.Click();
    EXPECT_EQ(Asked() + Marks(), "request 3 flags 320 /d/b/x0 > \n-2+6+7");
}

TEST_F(frmMainFiles, MovesAndCopiesToAChosenFolder)
{
    const std::string sMove =
        "browse Select the folder that you want to move selected files to.\n1126 1 /d/b/0\n";
    const std::string sCopy = std::string(sMove).replace(sMove.find("move"), 4, "copy");
    Select("+-+");
    main.lvFiles.SetSelectedItem(1);
    desktop.sChosenFolder = "/";
    LetGo({"/d/a/x"});
    main.mnuFileMoveTo.Click();
    EXPECT_EQ(Asked(), sMove + "free 7\nrequest 1 flags 257 /d/a/x0" + kOdd + "0 > /x0/y\"\n0\n");
    EXPECT_EQ(Marks(), "+5-3+4");

    // The list of destinations names each file that is still there, and a copy finds what has gone.
    desktop.sChosenFolder = std::string(300, 'f');
    LetGo({kOdd});
    main.mnuFileCopyTo.Click();
    EXPECT_EQ(Asked(),
              sCopy + "free 7\nrequest 2 flags 257 " + kOdd + "0 > " + desktop.sChosenFolder + "/y\"\n0\n");
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

TEST_F(frmMainFiles, OpensTheCurrentRowIfTheLastPressHitOne)
{
    main.lvFiles.SetSelectedItem(2);
    const std::string sChooser = "open 1 [rundll32.exe] [shell32.dll, OpenAs_RunDLL " + kOdd + "] []\n";
    const std::pair<platform::MenuItem&, std::string> cases[] = {
        {main.mnuFileOpen, "open 1 [" + kQuoted + "] [] []\n"},
        {main.mnuFileExplore, "open 1 [explorer.exe] [/d/c/] []\n"},
        {main.mnuFileNotepad, "open 1 [Notepad.exe] [" + kQuoted + "] []\n"},
        {main.mnuFileWordpad, "open 1 [Wordpad.exe] [" + kQuoted + "] []\n"},
        {main.mnuFileChooseProgram, sChooser},
        {main.mnuFileProperties, "properties owned 12 [" + kQuoted + "]\n"},
    };
    for (const auto& [item, sAsked] : cases) {
        for (const bool bHit : {false, true}) {
            main.bItemHit = bHit;
            item.Click();
            EXPECT_EQ(Asked(), bHit || sAsked == sChooser ? sAsked : "") << item.sCaption;
        }
    }
    main.lvFiles.ListItems.Clear();
    main.mnuFileOpen.Click();
    EXPECT_EQ(Asked(), "open 1 [\"\"] [] []\n");
    EXPECT_TRUE(desktop.sWindows.empty() && main.form.Enabled());
}

TEST_F(frmMainFiles, SaysWhyAProgramDidNotStart)
{
    main.lvFiles.SetSelectedItem(2);
    main.bItemHit = true;
    const std::string sDocument = "; message Cannot open \"/d/c/y\"\\x0A\"\r\n\r\n";
    const std::string sProgram = "; message Cannot open Notepad.exe\r\n\r\n";
    const std::pair<long, std::string> cases[] = {
        {2, "No such file or directory"},
        {31, results::GetErrorText(31)}, // for a document the user chooses a program
        {32, "Broken pipe"},
        {33, ""},
    };
    for (const auto& [nResult, sReason] : cases) {
        desktop.launchResults = {{kQuoted, nResult}, {"Notepad.exe", nResult}};
        main.mnuFileOpen.Click();
        EXPECT_EQ(Asked().find("OpenAs_RunDLL " + kQuoted) != std::string::npos, nResult == 31);
        EXPECT_EQ(std::exchange(desktop.sWindows, ""),
                  nResult == 31 || sReason.empty() ? "" : sDocument + sReason);
        main.mnuFileNotepad.Click();
        EXPECT_EQ(std::exchange(desktop.sWindows, ""), sReason.empty() ? "" : sProgram + sReason);
        Asked();
    }
    EXPECT_EQ(results::GetErrorText(123456), "Unknown error.");
}

class SaveResults : public MainWindow
{
protected:
    SaveResults()
    {
        Row("/p/", "a.jpg", 2);
        Row("/q/", "n\r\n+ /forged\xff", 3);
        Row("/q/", "c.jpg", 4);
        Row("/p/", "gone", 5);
        Row("/q/", "gone", 6);
        Row("/r/", "gone", 7);
        Row("/r/", "no group", 1);
        desktop.sChosenFile = "/out/report.txt";
    }
};

TEST_F(SaveResults, WritesEachGroupAndOpensTheFile)
{
    main.mnuSearchSaveResults.Click();
    const std::string sHead = "Tallyfen Report\nGenereted on ";
    const std::string sDate = platform::FormatDateTime(platform::Now());
    EXPECT_TRUE(desktop.sReport.starts_with(sHead));
    EXPECT_EQ(desktop.sReport.substr(sHead.size() + sDate.size()),
              "\n\n+ /p/a.jpg\n| /q/n\\x0D\\x0A+ /forged\\xFF\n+ /q/c.jpg\n"
              "\n+ /p/gone\n| /q/gone\n+ /r/gone\n\n-->\n");
    EXPECT_EQ(Asked(), "write /out/report.txt\nclose\nopen 1 [/out/report.txt] [] []\n");
    EXPECT_EQ(Status(), "Done");

    const platform::OPENFILENAME& request = desktop.saveRequest;
    EXPECT_EQ(request.hwndOwner, main.form.hWnd());
    EXPECT_EQ(support::ScriptedDesktop::Shown(request.lpstrFilter), "Text Document (*.txt)0*.txt0");
    EXPECT_EQ(request.lpstrFile, std::string(260, '\0'));
    EXPECT_EQ(request.lpstrDefExt + "|" + request.lpstrTitle, "txt|Save As");
    EXPECT_EQ(request.Flags, 0x28000EU);
}

TEST_F(SaveResults, ShowsWhatIsThereIfItCannotBeWritten)
{
    for (const int nLinesThatFit : {-1, 0, 3}) {
        desktop.nLinesThatFit = nLinesThatFit;
        desktop.sReport.clear();
        main.mnuSearchSaveResults.Click();
        EXPECT_EQ(std::count(desktop.sReport.begin(), desktop.sReport.end(), '\n'),
                  std::max(nLinesThatFit, 0));
        EXPECT_TRUE(Asked().ends_with("open 1 [/out/report.txt] [] []\n") && main.form.Enabled());
    }
}

TEST_F(SaveResults, DoesNothingWithoutAFileNameOrARow)
{
    main.StatusBar1.Panels(1).SetText("as before");
    for (const char* pChosen : {"", "/out/report.txt"}) {
        desktop.sChosenFile = pChosen;
        main.mnuSearchSaveResults.Click();
        main.lvFiles.ListItems.Clear();
    }
    EXPECT_EQ(Asked() + Status(), "as before");
}

TEST_F(SaveResults, AsksAgainWhereTheLastFileWent)
{
    const std::string sFolder = "/" + std::string(400, 'd');
    std::string sInitDir = "/start";
    for (const std::string& sChosen : {sFolder + "/f.txt", std::string()}) {
        desktop.sChosenFile = sChosen;
        EXPECT_EQ(results::ShowSaveDialog(nullptr, "All|x", "a/b:c?\\<>|\"*.txt", sInitDir, "T"), sChosen);
        EXPECT_EQ(sInitDir, sFolder);
        EXPECT_EQ(desktop.saveRequest.lpstrFile.c_str(), std::string("a_b_c______*.txt"));
        EXPECT_EQ(desktop.saveRequest.lpstrDefExt, "All");
    }
}

} // namespace

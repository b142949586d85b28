// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "mAPIError.h"

namespace {

class frmMainOpen : public MainWindow
{
protected:
    frmMainOpen()
    {
        Row("/d/", "a", 2);
        Row("/d/", "b c\"\n", 4);
        Select("++");
        main.lvFiles.SetSelectedItem(1);
    }
    const std::string m_sQuoted = "\"/d/b c\"\n\"";
};

TEST_F(frmMainOpen, ActsOnTheCurrentRowIfTheLastPressHitOne)
{
    const std::string sChooser = "open 1 [rundll32.exe] [shell32.dll, OpenAs_RunDLL /d/b c\"\n] []\n";
    const struct {
        platform::MenuItem& item;
        std::string sAsked, sAskedWithoutHit;
    } cases[] = {
        {main.mnuFileOpen, "open 1 [" + m_sQuoted + "] [] []\n", ""},
        {main.mnuFileExplore, "open 1 [explorer.exe] [/d/] []\n", ""},
        {main.mnuFileNotepad, "open 1 [Notepad.exe] [" + m_sQuoted + "] []\n", ""},
        {main.mnuFileWordpad, "open 1 [Wordpad.exe] [" + m_sQuoted + "] []\n", ""},
        {main.mnuFileChooseProgram, sChooser, sChooser},
        {main.mnuFileProperties, "properties owned 12 [" + m_sQuoted + "]\n", ""},
    };
    for (const auto& [item, sAsked, sAskedWithoutHit] : cases) {
        main.bItemHit = false;
        item.Click();
        EXPECT_EQ(Asked(), sAskedWithoutHit) << item.sCaption;
        main.bItemHit = true;
        item.Click();
        EXPECT_EQ(Asked(), sAsked) << item.sCaption;
    }
    main.lvFiles.ListItems.Clear();
    main.mnuFileOpen.Click();
    EXPECT_EQ(Asked(), "open 1 [\"\"] [] []\n");
    EXPECT_EQ(desktop.sWindows, "");
    EXPECT_TRUE(main.form.Enabled());
}

TEST_F(frmMainOpen, SaysWhyAProgramDidNotStart)
{
    main.bItemHit = true;
    const std::string sError = "; message Cannot open ";
    const std::pair<long, std::string> cases[] = {
        {2, "No such file or directory"},
        {31, results::GetErrorText(31)}, // for a document the user chooses a program
        {32, "Broken pipe"},
        {33, ""},
    };
    for (const auto& [nResult, sReason] : cases) {
        desktop.launchResults = {{m_sQuoted, nResult}, {"Notepad.exe", nResult}};
        main.mnuFileOpen.Click();
        EXPECT_EQ(Asked().find("OpenAs_RunDLL \"/d/b c") != std::string::npos, nResult == 31);
        EXPECT_EQ(std::exchange(desktop.sWindows, ""),
                  nResult == 31 || sReason.empty() ? "" : sError + "\"/d/b c\"\\x0A\"\r\n\r\n" + sReason);
        main.mnuFileNotepad.Click();
        EXPECT_EQ(std::exchange(desktop.sWindows, ""),
                  sReason.empty() ? "" : sError + "Notepad.exe\r\n\r\n" + sReason);
        Asked();
    }
    EXPECT_EQ(results::GetErrorText(123456), "Unknown error.");
}

} // namespace

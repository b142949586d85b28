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
        desktop.sWindows.clear();
    }
    const std::string m_sQuoted = "\"/d/b c\"\n\"";
};

TEST_F(frmMainOpen, ActsOnTheCurrentRowIfTheLastPressHitOne)
{
    const std::string sChooser = "open 1 [rundll32.exe] [shell32.dll, OpenAs_RunDLL /d/b c\"\n] []\n";
    struct tCase {
        platform::MenuItem& item;
        std::string sAsked;
        std::string sAskedWithoutHit;
    };
    const tCase cases[] = {
        {main.mnuFileOpen, "open 1 [" + m_sQuoted + "] [] []\n", ""},
        {main.mnuFileExplore, "open 1 [explorer.exe] [/d/] []\n", ""},
        {main.mnuFileNotepad, "open 1 [Notepad.exe] [" + m_sQuoted + "] []\n", ""},
        {main.mnuFileWordpad, "open 1 [Wordpad.exe] [" + m_sQuoted + "] []\n", ""},
        {main.mnuFileChooseProgram, sChooser, sChooser},
        {main.mnuFileProperties, "properties owned 12 [" + m_sQuoted + "]\n", ""},
    };
    for (const tCase& c : cases) {
        main.bItemHit = false;
        c.item.Click();
        EXPECT_EQ(Asked(), c.sAskedWithoutHit) << c.item.sCaption;
        main.bItemHit = true;
        c.item.Click();
        EXPECT_EQ(Asked(), c.sAsked) << c.item.sCaption;
    }
    EXPECT_EQ(desktop.sWindows, "");
    EXPECT_TRUE(main.form.Enabled());

    main.lvFiles.ListItems.Clear();
    main.mnuFileOpen.Click();
    EXPECT_EQ(Asked(), "open 1 [\"\"] [] []\n");
}

TEST_F(frmMainOpen, SaysWhyAProgramDidNotStart)
{
    main.bItemHit = true;
    const std::string sError = "; message Cannot open ";
    const struct tCase {
        long nResult;
        std::string sOpen; ///< what is said when the file does not open
        bool bNotepadSays;
    } cases[] = {
        {2, sError + "\"/d/b c\"\\x0A\"\r\n\r\nNo such file or directory", true},
        {31, "", true}, // the user chooses a program
        {32, sError + "\"/d/b c\"\\x0A\"\r\n\r\nBroken pipe", true},
        {33, "", false},
    };
    for (const tCase& c : cases) {
        desktop.launchResults = {{m_sQuoted, c.nResult}, {"Notepad.exe", c.nResult}};
        main.mnuFileOpen.Click();
        EXPECT_EQ(Asked().find("OpenAs_RunDLL \"/d/b c") != std::string::npos, c.nResult == 31);
        EXPECT_EQ(std::exchange(desktop.sWindows, ""), c.sOpen) << c.nResult;
        main.mnuFileNotepad.Click();
        EXPECT_EQ(std::exchange(desktop.sWindows, ""),
                  c.bNotepadSays ? sError + "Notepad.exe\r\n\r\n" + results::GetErrorText(c.nResult) : "");
        Asked();
    }
    EXPECT_EQ(results::GetErrorText(123456), "Unknown error.");
}

} // namespace

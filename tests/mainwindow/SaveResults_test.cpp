#include "MainWindow.h"
#include "Texts.h"
#include "mFileDialog.h"
#include "mFileInfo.h"

namespace {

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
    std::string m_sDate = platform::FormatDateTime(platform::Now()); ///< at the latest when the test began
};

TEST_F(SaveResults, WritesEachGroupAndOpensTheFile)
{
    main.mnuSearchSaveResults.Click();
    const std::string sHead = "Tallyfen Report\nGenereted on ";
    ASSERT_TRUE(desktop.sReport.starts_with(sHead));
    const auto nDateEnd = desktop.sReport.find('\n', sHead.size());
    EXPECT_EQ(desktop.sReport.substr(sHead.size(), nDateEnd - sHead.size()).size(), m_sDate.size());
    EXPECT_EQ(desktop.sReport.substr(nDateEnd), "\n\n+ /p/a.jpg\n| /q/n\\x0D\\x0A+ /forged\\xFF\n+ /q/c.jpg\n"
                                                "\n+ /p/gone\n| /q/gone\n+ /r/gone\n\n-->\n");
    EXPECT_EQ(Asked(), "write /out/report.txt\nclose\nopen 1 [/out/report.txt] [] []\n");
    EXPECT_EQ(main.StatusBar1.Panels(1).Text(), "Done");

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
        EXPECT_TRUE(Asked().ends_with("open 1 [/out/report.txt] [] []\n"));
        EXPECT_TRUE(main.form.Enabled());
    }
}

TEST_F(SaveResults, DoesNothingWithoutAFileNameOrARow)
{
    desktop.sChosenFile.clear();
    main.StatusBar1.Panels(1).SetText("as before");
    main.mnuSearchSaveResults.Click();
    main.lvFiles.ListItems.Clear();
    desktop.sChosenFile = "/out/report.txt";
    main.mnuSearchSaveResults.Click();
    EXPECT_EQ(Asked(), "");
    EXPECT_EQ(main.StatusBar1.Panels(1).Text(), "as before");
}

TEST_F(SaveResults, AsksAgainWhereTheLastFileWent)
{
    std::string sInitDir = "/start";
    desktop.sChosenFile = "/" + std::string(400, 'd') + "/f.txt";
    EXPECT_EQ(results::ShowSaveDialog(nullptr, "All|x", "a/b:c?\\<>|\"*.txt", sInitDir, "T"),
              desktop.sChosenFile);
    EXPECT_EQ(sInitDir, "/" + std::string(400, 'd'));
    EXPECT_EQ(desktop.saveRequest.lpstrFile.c_str(), std::string("a_b_c______*.txt"));
    EXPECT_EQ(desktop.saveRequest.lpstrDefExt, "All");
    desktop.sChosenFile.clear();
    EXPECT_EQ(results::ShowSaveDialog(nullptr, "a.b", "", sInitDir, "T"), "");
    EXPECT_EQ(sInitDir, "/" + std::string(400, 'd'));
}

TEST(mFileInfo, TakesPathsApartAndTogether)
{
    const struct tCase {
        const char* pPath;
        bool bTrailing;
        char cSeparator;
        const char* pParent;
    } cases[] = {
        {"C:\\Docs\\letter.txt", false, '\\', "C:\\Docs"},
        {"/docs/letter", false, '/', "/docs"},
        {"/docs//", false, '/', "/docs"},
        {"/letter", true, '/', "/"},
        {"", false, '/', ""},
    };
    for (const tCase& c : cases) {
        EXPECT_EQ(results::ParentFolder(c.pPath, c.bTrailing, c.cSeparator), c.pParent) << c.pPath;
    }
    EXPECT_EQ(results::JoinPath("", "f"), "f");
    EXPECT_EQ(results::JoinPath("/d", "f"), "/d/f");
    EXPECT_EQ(results::JoinPath("/d/", "f"), "/d/f");
    EXPECT_EQ(results::CutAtNull(std::string("ab\0c", 4)) + results::CutAtNull("  d e "), "abd e");
    EXPECT_EQ(results::CutAtNull(std::string("\0x", 2)), "");
}

} // namespace

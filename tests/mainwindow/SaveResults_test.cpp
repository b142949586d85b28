// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "Texts.h"
#include "mFileDialog.h"

#include <algorithm>

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

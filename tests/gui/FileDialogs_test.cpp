#include "Answers.h"
#include "FolderView.h"
#include "PathLabel.h"
#include "PosixFiles.h"
#include "QtFileDialogs.h"
#include "System.h"
#include "TempTree.h"
#include "WindowManager.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using support::Answers;

std::string Text(const std::string& sBuffer)
{
    return sBuffer.substr(0, sBuffer.find('\0'));
}

template <typename T>
T& Child(QDialog& dialog, const char* pName)
{
    T* const pChild = dialog.findChild<T*>(QLatin1String(pName));
    EXPECT_NE(pChild, nullptr) << pName;
    return *pChild;
}

/// The test's own tree is the home folder.
class FileDialogs : public ::testing::Test
{
protected:
    FileDialogs()
    {
        platform::tSystem system;
        system.files = &m_files;
        platform::UseSystem(system);
        setenv("HOME", tree.sRoot.c_str(), 1);
        for (const char* pFolder : {"/alpha", "/alpha/inner", "/bad\xFF", "/closed", "/x.y"}) {
            EXPECT_EQ(mkdir((tree.sRoot + pFolder).c_str(), 0755), 0);
        }
    }

    desktop::QtFileDialogs dialogs;
    support::TempTree tree;
    Answers answers;

private:
    desktop::PosixFiles m_files;
};

class ChooseFolder : public FileDialogs
{
protected:
    /// What the dialog shows as selected when it comes up with this start folder, and what is chosen when
    /// `answer` has run.
    std::pair<std::string, std::string> Choose(const std::string& sStart, const Answers::Answer& answer)
    {
        std::string sFirst;
        answers.Expect("folderChooser", [&](QDialog& dialog) {
            sFirst = Child<QLabel>(dialog, "folder").text().toStdString();
            answer(dialog);
        });
        sStartFolder = sStart + '\0';
        nInitialized = 0;
        platform::BROWSEINFO info;
        info.lpszTitle = "Select a folder.";
        info.lpfn = sStart.empty() ? nullptr : &OnMessage;
        info.lParam = 4711;
        const platform::ItemId item = dialogs.SHBrowseForFolderA(info);
        EXPECT_EQ(nInitialized, sStart.empty() ? 0 : 1);
        std::string sBuffer(4, '\0');
        EXPECT_EQ(dialogs.SHGetPathFromIDListA(item, sBuffer), item != 0);
        dialogs.CoTaskMemFree(item);
        std::string sUntouched = "x";
        EXPECT_FALSE(dialogs.SHGetPathFromIDListA(item, sUntouched));
        EXPECT_EQ(sUntouched, "x");
        return {sFirst, Text(sBuffer)};
    }

    static int OnMessage(platform::WindowHandle hWnd, unsigned uMsg, long /*lParam*/, long lpData)
    {
        EXPECT_EQ(lpData, 4711);
        if (uMsg == platform::BFFM_INITIALIZED) {
            ++nInitialized;
            platform::SendMessageA(hWnd, platform::BFFM_SETSELECTIONA, 0, "/usr"); // means nothing
            platform::SendMessageA(hWnd, platform::BFFM_SETSELECTIONA, 1, sStartFolder);
        }
        return 0;
    }

    static inline std::string sStartFolder;
    static inline int nInitialized = 0;
};

TEST_F(ChooseFolder, StartsWhereItIsToldAndGivesExactPaths)
{
    const struct {
        std::string sStart, sShown, sChosen;
    } cases[] = {
        {"", tree.sRoot, tree.sRoot},
        {tree.sRoot + "/alpha/inner/", tree.sRoot + "/alpha/inner", tree.sRoot + "/alpha/inner"},
        {tree.sRoot + "/bad\xFF/", tree.sRoot + "/bad\\xFF", tree.sRoot + "/bad\xFF"},
        {tree.sRoot + "/alpha/none/deeper/", tree.sRoot + "/alpha", tree.sRoot + "/alpha"},
        {"/", "/", "/"},
        {"/no such folder at all", "/", "/"},
        {"relative", tree.sRoot, tree.sRoot},
    };
    for (const auto& each : cases) {
        const auto [sShown, sChosen] = Choose(each.sStart, [](QDialog& dialog) {
            EXPECT_EQ(Child<QLabel>(dialog, "text").text(), QStringLiteral("Select a folder."));
            auto& view = Child<desktop::FolderView>(dialog, "folders");
            EXPECT_TRUE(view.hasFocus());
            EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.currentIndex()).center()));
            QTest::keyClick(&view, Qt::Key_Return);
        });
        EXPECT_EQ(sShown, each.sShown);
        EXPECT_EQ(sChosen, each.sChosen);
    }
    for (const char* pButton : {"cancel", ""}) {
        EXPECT_EQ(Choose(tree.sRoot,
                         [&](QDialog& dialog) {
                             *pButton == '\0' ? QTest::keyClick(&dialog, Qt::Key_Escape)
                                              : Answers::Click(dialog, pButton);
                         })
                      .second,
                  "");
    }
}

TEST_F(ChooseFolder, MakesAFolder)
{
    const auto make = [&](QDialog& dialog, const QString& sName) {
        answers.Expect("newFolderQuestion", [&](QDialog& question) {
            auto& input = dynamic_cast<QInputDialog&>(question);
            EXPECT_FALSE(input.textValue().isEmpty());
            input.setTextValue(sName);
            QTest::keyClick(&question, Qt::Key_Return);
        });
        Answers::Click(dialog, "newFolder");
    };
    const auto chosen = Choose(tree.sRoot + "/bad\xFF", [&](QDialog& dialog) {
        make(dialog, QStringLiteral("b&w"));
        make(dialog, QString()); // nothing
        make(dialog, QStringLiteral("inner"));
        const std::string sHere = tree.sRoot + "/bad\\xFF/b&w/inner";
        EXPECT_EQ(Child<QLabel>(dialog, "folder").text().toStdString(), sHere);
        // Among its siblings, and what was there before keeps its place and its path.
        QTest::keyClick(&Child<desktop::FolderView>(dialog, "folders"), Qt::Key_Left);
        make(dialog, QStringLiteral("a"));
        QTest::keyClick(&Child<desktop::FolderView>(dialog, "folders"), Qt::Key_Down);
        EXPECT_EQ(Child<QLabel>(dialog, "folder").text().toStdString(), sHere);
        // What cannot be made is told.
        for (const char* pName : {"a/b", ".", "x\ny"}) {
            answers.Expect("newFolderQuestion", [&](QDialog& question) {
                dynamic_cast<QInputDialog&>(question).setTextValue(QLatin1String(pName));
                answers.Expect("newFolderFault", "ok");
                rmdir((tree.sRoot + "/bad\xFF/b&w/inner").c_str());
                QTest::keyClick(&question, Qt::Key_Return);
            });
            Answers::Click(dialog, "newFolder");
        }
        mkdir((tree.sRoot + "/bad\xFF/b&w/inner").c_str(), 0755);
        Answers::Click(dialog, "ok");
    });
    EXPECT_EQ(chosen.second, tree.sRoot + "/bad\xFF/b&w/inner");
    EXPECT_TRUE(std::filesystem::is_directory(tree.sRoot + "/bad\xFF/b&w/a"));
}

class SaveFile : public FileDialogs
{
protected:
    std::string Ask(const Answers::Answer& answer, const std::string& sProposed = {})
    {
        platform::OPENFILENAME request;
        request.lpstrFilter = std::string("Text Document (*.txt)\0*.txt\0", 29);
        request.nFilterIndex = 1;
        request.lpstrFile = sProposed + std::string(260 - sProposed.size(), '\0');
        request.lpstrTitle = "Save As";
        request.lpstrDefExt = "txt";
        request.lpstrInitialDir = sFolder;
        request.Flags = platform::OFN_OVERWRITEPROMPT;
        const std::string sBefore = request.lpstrFile;
        const auto current = std::filesystem::current_path();
        answers.Expect("saveChooser", answer);
        const bool bChosen = dialogs.GetSaveFileNameA(request);
        EXPECT_EQ(std::filesystem::current_path(), current);
        EXPECT_EQ(request.lpstrFile == sBefore, !bChosen);
        return bChosen ? Text(request.lpstrFile) : "";
    }

    static void Type(QDialog& dialog, const std::string& sName)
    {
        auto& name = Child<QLineEdit>(dialog, "name");
        EXPECT_TRUE(name.hasFocus());
        name.selectAll();
        QTest::keyClicks(&name, QString::fromStdString(sName));
        QTest::keyClick(&name, Qt::Key_Return);
    }

    std::string sFolder = tree.sRoot;
};

TEST_F(SaveFile, GivesTheExactPathOfWhatIsTyped)
{
    const struct {
        std::string sFolder, sTyped, sChosen;
    } cases[] = {
        {"", "report", "/report.txt"},
        {"/bad\xFF", "report.log", "/bad\xFF/report.log"},
        {"/bad\xFF/", " r.v2 ", "/bad\xFF/r.v2"},
        {"/none/", "../x.y/report", "/x.y/report.txt"}, // the dot is in the folder's name
        {"/alpha", tree.sRoot + "/x", "/x.txt"},
        {"", ".hidden", "/.hidden"},
    };
    for (const auto& each : cases) {
        sFolder = tree.sRoot + each.sFolder;
        if (each.sFolder == "/none/") {
            sFolder = tree.sRoot + "/alpha/none"; // up to the nearest one
        }
        EXPECT_EQ(Ask([&](QDialog& dialog) { Type(dialog, each.sTyped); }), tree.sRoot + each.sChosen);
    }
    EXPECT_EQ(Ask([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, "proposed"), "");
    sFolder.clear();
    EXPECT_EQ(Ask([](QDialog& dialog) { Answers::Click(dialog, "save"); }, "proposed"),
              tree.sRoot + "/proposed.txt");
}

TEST_F(SaveFile, AsksBeforeItReplacesAndStaysUntilThereIsAnAnswer)
{
    tree.File("alpha/report.txt");
    tree.File("alpha/odd\xFF.txt");
    tree.File("alpha/other.log");
    const std::string sTyped = "report"; // which alone does not exist
    answers.Expect("saveChooser", [&](QDialog& dialog) {
        Type(dialog, "alpha"); // into the folder
        auto& files = Child<QListWidget>(dialog, "files");
        ASSERT_EQ(files.count(), 2);
        EXPECT_EQ(files.item(0)->text(), QStringLiteral("odd\\xFF.txt"));
        EXPECT_FALSE(files.item(0)->flags().testFlag(Qt::ItemIsSelectable)) << "its name cannot be typed";
        EXPECT_EQ(Child<QLineEdit>(dialog, "name").text(), QString());
        auto& fault = Child<QLabel>(dialog, "fault");
        for (const char* pWrong : {"", "none/x", "report.txt/x", "link"}) {
            symlink("link.txt", (tree.sRoot + "/alpha/link.txt").c_str());
            Type(dialog, pWrong);
            EXPECT_TRUE(dialog.isVisible() && fault.isVisible()) << pWrong;
        }
        Type(dialog, std::string(300, 'n'));
        EXPECT_TRUE(fault.isVisible());
        answers.Expect("replaceFile", [](QDialog& question) { QTest::keyClick(&question, Qt::Key_Return); });
        Type(dialog, sTyped);
        EXPECT_TRUE(dialog.isVisible()) << "Enter must not replace";
        files.setCurrentRow(1);
        EXPECT_EQ(Child<QLineEdit>(dialog, "name").text(), QStringLiteral("report.txt"));
        answers.Expect("replaceFile", "yes");
        Answers::Click(dialog, "save");
    });
    platform::OPENFILENAME request;
    request.lpstrFilter = std::string("Text\0*.TXT\0", 12);
    request.nFilterIndex = 1;
    request.lpstrDefExt = "txt";
    request.lpstrInitialDir = tree.sRoot;
    request.Flags = platform::OFN_OVERWRITEPROMPT;
    ASSERT_TRUE(dialogs.GetSaveFileNameA(request));
    EXPECT_EQ(request.lpstrFile, tree.sRoot + "/alpha/report.txt" + '\0');
}

TEST_F(SaveFile, SaysWhereNothingCanBeWritten)
{
    const std::string sReadOnly = tree.File("read-only.txt");
    chmod(sReadOnly.c_str(), 0444);
    chmod((tree.sRoot + "/closed").c_str(), 0555);
    EXPECT_EQ(mkfifo((tree.sRoot + "/pipe.txt").c_str(), 0666), 0);
    chmod(tree.sRoot.c_str(), 0755);
    if (geteuid() == 0 && setresuid(65534, 65534, 0) != 0) {
        GTEST_SKIP();
    }
    EXPECT_EQ(Ask([&](QDialog& dialog) {
                  const std::pair<const char*, const char*> cases[] = {
                      {"read-only", "You are not permitted to write to this file."},
                      {"closed/x", "You are not permitted to write to this folder."},
                      {"pipe", "There is something of that name that is no file."}};
                  for (const auto& [pWrong, pFault] : cases) {
                      Type(dialog, pWrong);
                      const auto& fault = Child<QLabel>(dialog, "fault");
                      EXPECT_TRUE(dialog.isVisible() && fault.isVisible()) << pWrong;
                      EXPECT_EQ(fault.text().toStdString(), pFault) << pWrong;
                  }
                  Answers::Click(dialog, "cancel");
              }),
              "");
    EXPECT_EQ(getuid() == 65534 ? setresuid(0, 0, 0) : 0, 0);
}

} // namespace

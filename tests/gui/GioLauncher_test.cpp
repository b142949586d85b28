#include "Answers.h"
#include "GioLauncher.h"
#include "Programs.h"
#include "SessionBus.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using support::Answers;

/// What asks for the choice of a program.
constexpr char kChoose[] = "shell32.dll, OpenAs_RunDLL ";

std::string Quoted(const std::string& sPath)
{
    return '"' + sPath + '"';
}

class Launching : public ::testing::Test
{
protected:
    long Open(const std::string& sFile, const std::string& sParameters = {})
    {
        return launcher.ShellExecuteA(nullptr, "open", sFile, sParameters, {}, platform::SW_SHOWNORMAL);
    }

    support::Programs& programs = support::Programs::Get();
    support::TempTree tree;
    desktop::GioLauncher launcher;
    Answers answers;
};

TEST_F(Launching, OpensAFileByItsExactPathInTheProgramThatIsAskedFor)
{
    const std::string sOdd = tree.File("a\xFF"
                                       "b \"c\" %f $(x) ;'\n.txt");
    const std::string sMany = tree.File("x.many", "x");
    const std::string sUnknown = tree.File("x.alone", std::string("\0\1\2", 3));
    const std::string sInsideQuotes = tree.File("\"q\".txt");
    const struct {
        std::string sFile, sParameters, sProgram, sArgument;
    } cases[] = {
        {Quoted(sOdd), "", "editor", sOdd},
        {sInsideQuotes, "", "editor", sInsideQuotes},
        {Quoted(sMany), "", "viewer", sMany},
        {"Notepad.exe", Quoted(sUnknown), "editor", sUnknown},
        {"Wordpad.exe", Quoted(sMany), "editor", sMany}, // no word processor is there
        {"explorer.exe", tree.sRoot + "/", "folders", tree.sRoot},
    };
    for (const auto& each : cases) {
        EXPECT_GT(Open(each.sFile, each.sParameters), 32) << each.sFile;
        const auto noted = programs.Started(each.sProgram);
        ASSERT_EQ(noted.size(), 3U) << each.sFile;
        EXPECT_EQ(noted[0], each.sArgument);
        EXPECT_NE(noted[1], std::to_string(getsid(0))) << "it would go with our terminal";
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "it is a child of ours";
    }
}

TEST_F(Launching, SaysWhyNothingCanBeStarted)
{
    const std::string sFolder = tree.sRoot + "/";
    const struct {
        std::string sFile, sParameters;
        long nCode;
    } cases[] = {
        {Quoted(sFolder + "none.txt"), "", ENOENT},
        {"\"\"", "", ENOENT},
        {"", "", ENOENT},
        {"relative.txt", "", ENOENT},
        {"rundll32.exe", "shell32.dll, Control_RunDLL x", ENOENT},
        {Quoted(sFolder + std::string(300, 'x')), "", ENOENT},
        {Quoted(tree.File("file.alone", std::string("\0\1", 2)) + "/x"), "", ENOTDIR},
        {Quoted(sFolder + "file.alone"), "", platform::SE_ERR_NOASSOC},
        {Quoted(tree.File("x.broken", std::string("\0\1", 2))), "", platform::SE_ERR_NOASSOC},
        {"Notepad.exe", Quoted(sFolder + "none.txt"), ENOENT},
        {"explorer.exe", "", ENOENT},
        {"rundll32.exe", kChoose, ENOENT},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Open(each.sFile, each.sParameters), each.nCode) << each.sFile << " " << each.sParameters;
    }
    // Of these the program says nothing, so the shell does.
    for (const std::string& sCommand : {std::string("explorer.exe"), std::string("rundll32.exe")}) {
        answers.Expect("launchFault", [](QDialog& dialog) {
            const auto* const pText = dialog.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            EXPECT_LE(pText->minimumSizeHint().width(), dialog.width()) << "cut off";
            Answers::Click(dialog, "ok");
        });
        const std::string sPath = sFolder + "no\nne" + std::string(240, 'm');
        EXPECT_EQ(Open(sCommand, (sCommand == "explorer.exe" ? "" : kChoose) + sPath), ENOENT);
    }
}

TEST_F(Launching, LetsTheUserChooseAProgram)
{
    const std::string sFile = tree.File("<b>&x\xFF.many", "x");
    // The fitting ones first, the usual one at their head; no other that takes no file or does not want to
    // show.
    answers.Expect("programChooser", [](QDialog& dialog) {
        auto& list = *dialog.findChild<QListWidget*>(QStringLiteral("programs"));
        QStringList shown;
        for (int n = 0; n < list.count(); ++n) {
            shown << list.item(n)->text();
        }
        EXPECT_EQ(shown.join(QLatin1Char(' ')).toStdString(),
                  "viewer editor Other applications folders Zebra");
        EXPECT_EQ(list.currentRow(), 0);
        QTest::keyClicks(&list, QStringLiteral("z"));
        EXPECT_EQ(list.currentItem()->text(), QStringLiteral("Zebra"));
        QTest::keyClick(&list, Qt::Key_Return);
    });
    EXPECT_GT(Open("rundll32.exe", kChoose + Quoted(sFile)), 32);
    EXPECT_EQ(programs.Started("Zebra").front(), sFile);

    // By a part of the name; what hides is not opened.
    answers.Expect("programChooser", [](QDialog& dialog) {
        auto& filter = *dialog.findChild<QLineEdit*>(QStringLiteral("filter"));
        auto& said = *dialog.findChild<QLabel*>(QStringLiteral("said"));
        auto& open = *dialog.findChild<QPushButton*>(QStringLiteral("open"));
        filter.setFocus();
        QTest::keyClicks(&filter, QStringLiteral("nothing like it"));
        EXPECT_TRUE(!open.isEnabled() && said.isVisible());
        QTest::keyClick(&filter, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        filter.clear();
        QTest::keyClicks(&filter, QStringLiteral("E"));
        EXPECT_FALSE(said.isVisible());
        QTest::keyClick(&filter, Qt::Key_Down); // to the second
        QTest::keyClick(&filter, Qt::Key_Return);
    });
    EXPECT_GT(Open("rundll32.exe", kChoose + sFile), 32);
    EXPECT_EQ(programs.Started("editor").size(), 3U);

    // The file goes while the question waits: that is said, and the question stays.
    answers.Expect("programChooser", [&](QDialog& dialog) {
        unlink(sFile.c_str());
        Answers::Click(dialog, "open");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(dialog.findChild<QLabel*>(QStringLiteral("said"))
                        ->text()
                        .contains(QStringLiteral("No such file")));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_GT(Open("rundll32.exe", kChoose + sFile), 32);
}

TEST_F(Launching, ShowsPropertiesInASheetOfItsOwn)
{
    const auto show = [&](const std::string& sFile) {
        platform::SHELLEXECUTEINFO info;
        info.lpVerb = "properties";
        info.lpFile = sFile;
        return launcher.ShellExecuteExA(info);
    };
    EXPECT_FALSE(show(""));
    for (const auto& [sPath, nError] : {std::pair("/none", ENOENT), std::pair("/file/x", ENOTDIR)}) {
        answers.Expect("launchFault", [nError = nError](QDialog& dialog) {
            const QString sText = dynamic_cast<QMessageBox&>(dialog).text();
            EXPECT_TRUE(sText.endsWith(QLatin1String(strerror(nError)))) << sText.toStdString();
            Answers::Click(dialog, "ok");
        });
        tree.File("file");
        EXPECT_FALSE(show(Quoted(tree.sRoot + sPath)));
    }
    const std::string sFile = tree.File("<i>\n\xFF.txt", std::string(12'345, 'x'));
    chmod(sFile.c_str(), 04640);
    EXPECT_TRUE(show(Quoted(sFile)));
    QDialog* pSheet = nullptr;
    for (QWidget* pWindow : QApplication::topLevelWidgets()) {
        if (pWindow->windowTitle().startsWith(QLatin1Char('<'))) {
            pSheet = qobject_cast<QDialog*>(pWindow);
        }
    }
    ASSERT_NE(pSheet, nullptr);
    const auto shown = [&](const char* pWhat) {
        return pSheet->findChild<QLabel*>(QLatin1String(pWhat))->text().toStdString();
    };
    EXPECT_EQ(shown("Name"), "<i>\\x0A\\xFF.txt");
    EXPECT_EQ(shown("Folder"), tree.sRoot + "/");
    EXPECT_EQ(shown("Permissions"), "rw-r----- (4640)");
    EXPECT_TRUE(shown("Size").ends_with(" bytes / 12.1 KB")) << shown("Size");
    EXPECT_NE(shown("Kind").find("text/plain"), std::string::npos);
    QTest::keyClick(pSheet, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(QApplication::topLevelWidgets().contains(static_cast<QWidget*>(pSheet)));
}

TEST_F(Launching, StartsNoSessionBus)
{
    // Where there is none, the libraries would run this.
    const std::string sStarter =
        tree.File("bin/dbus-launch", "#!/bin/sh\n: >'" + tree.sRoot + "/started'\nexit 1\n");
    chmod(sStarter.c_str(), 0755);
    const std::string sPath = getenv("PATH");
    setenv("PATH", (tree.sRoot + "/bin:" + sPath).c_str(), 1);
    setenv("DISPLAY", ":77", 1);
    EXPECT_FALSE(desktop::HasSessionBus());
    desktop::StartNoSessionBus();
    EXPECT_GT(Open(tree.File("x.txt")), 32);
    EXPECT_EQ(programs.Started("editor").back(), "") << "it sees our measure";
    EXPECT_FALSE(std::filesystem::exists(tree.sRoot + "/started"));
    setenv("PATH", sPath.c_str(), 1);
    unsetenv("DISPLAY");
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

} // namespace

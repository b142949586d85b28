// SPDX-License-Identifier: MIT
#include "Answers.h"
#include "GioLauncher.h"
#include "SessionBus.h"
#include "StandingWindow.h"
#include "TempTree.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

namespace {

using support::Answers;
using support::Child;

/// Programs that note what they are started with, and kinds of files that have one, several or none of them.
/// There is one such desktop for the whole test program, since GIO looks at the environment once.
class Programs
{
public:
    static Programs& Get()
    {
        static Programs programs;
        return programs;
    }

    /// Waits for a start of the program, which noted its arguments, its session, its session bus.
    std::vector<std::string> Started(const std::string& sProgram)
    {
        const std::string sNote = m_tree.sRoot + "/" + sProgram + ".note";
        EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(sNote); })) << sProgram;
        std::ifstream note(sNote, std::ios::binary);
        std::vector<std::string> noted;
        for (std::string sPart; std::getline(note, sPart, '\0');) {
            noted.push_back(sPart);
        }
        std::filesystem::remove(sNote);
        return noted;
    }

private:
    Programs()
    {
        setenv("XDG_DATA_HOME", (m_tree.sRoot + "/data").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (m_tree.sRoot + "/data").c_str(), 1);
        for (const char* pVariable :
             {"XDG_CACHE_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_DIRS", "XDG_RUNTIME_DIR"}) {
            setenv(pVariable, (m_tree.sRoot + "/none").c_str(), 1);
        }
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        const std::string sRecord = m_tree.File("record", R"(#!/bin/sh
PATH=/usr/bin:/bin
note=$1; shift
session=$(cut -d' ' -f6 /proc/$$/stat)
printf '%s\0' "$@" "$session" "$DBUS_SESSION_BUS_ADDRESS" >"$note.part"
mv "$note.part" "$note"
)");
        chmod(sRecord.c_str(), 0755);
        const auto recording = [&](const std::string& sName, const char* pCode, const char* pMore = "") {
            Entry(sName, sRecord + " " + m_tree.sRoot + "/" + sName + ".note " + pCode + "\n" + pMore);
        };
        recording("editor", "%U");
        recording("viewer", "%f");
        recording("folders", "%u");
        recording("Zebra", "%F");
        recording("clock", ""); // takes no files
        recording("hidden", "%f", "NoDisplay=true\n");
        recording("console", "%f", "NoDisplay=true\nTerminal=true\n");
        Entry("gone", m_tree.sRoot + "/no-such-program %f\n");
        m_tree.File("data/applications/broken.desktop", "[Desktop Entry]\nnonsense");
        m_tree.File("data/mime/globs2", R"(50:text/plain:*.txt
50:application/x-folder-test:*.many
50:application/x-alone:*.alone
50:application/x-broken:*.broken
50:application/x-console:*.console
50:application/x-tty:*.tty
)");
        m_tree.File("data/mimeapps.list", R"([Default Applications]
text/plain=editor.desktop
application/x-folder-test=viewer.desktop
inode/directory=folders.desktop
application/x-broken=gone.desktop;broken.desktop
application/x-console=console.desktop
application/x-tty=console.desktop
[Added Associations]
application/x-tty=console.desktop;viewer.desktop;
application/x-folder-test=viewer.desktop;editor.desktop;
)");
    }

    void Entry(const std::string& sName, const std::string& sExec)
    {
        m_tree.File("data/applications/" + sName + ".desktop",
                    "[Desktop Entry]\nType=Application\nName=" + sName + "\nExec=" + sExec);
    }

    support::TempTree m_tree;
};

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
        // Where no terminal is found.
        const std::string sPath = getenv("PATH");
        setenv("PATH", "/none", 1);
        const long nCode =
            launcher.ShellExecuteA(nullptr, "open", sFile, sParameters, {}, platform::SW_SHOWNORMAL);
        setenv("PATH", sPath.c_str(), 1);
        return nCode;
    }
    bool ShowProperties(const std::string& sFile)
    {
        platform::SHELLEXECUTEINFO info;
        info.lpVerb = "properties";
        info.lpFile = sFile;
        return launcher.ShellExecuteExA(info);
    }

    Programs& programs = Programs::Get();
    support::TempTree tree;
    desktop::GioLauncher launcher;
    Answers answers;
};

TEST_F(Launching, OpensAFileByItsExactPathInTheProgramThatIsAskedFor)
{
    const std::string sOdd = tree.File("a\xFF b \"c\" %f $(x) ;'\n.txt");
    const std::string sInQuotes = tree.File("\"q\".txt");
    const std::string sMany = tree.File("x.many", "x");
    const std::string sEmpty = tree.File("empty");
    const std::string sTty = tree.File("x.tty", "x");
    const std::string sNone = tree.sRoot + "/none";
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {Quoted(sOdd), "", "editor", sOdd},
        {sInQuotes, "", "editor", sInQuotes},
        {sEmpty, "", "editor", sEmpty}, // its name says nothing
        {"Notepad.exe", Quoted(sMany), "editor", sMany},
        {"Wordpad.exe", Quoted(sMany), "editor", sMany}, // no word processor is there
        {"explorer.exe", tree.sRoot + "/", "folders", tree.sRoot},
        {Quoted(sTty), "", "viewer", sTty},              // the usual one wants a terminal
        {"Notepad.exe", Quoted(sNone), "editor", sNone}, // which looks for itself
    };
    for (const auto& [sFile, sParameters, sProgram, sArgument] : cases) {
        EXPECT_GT(Open(sFile, sParameters), 32) << sFile;
        const auto noted = programs.Started(sProgram);
        ASSERT_EQ(noted.size(), 3U) << sFile;
        EXPECT_EQ(noted[0], sArgument);
        EXPECT_NE(noted[1], std::to_string(getsid(0))) << "it would go with our terminal";
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "it is a child of ours";
    }
}

TEST_F(Launching, SaysWhyNothingCanBeStarted)
{
    const std::string sNone = tree.sRoot + "/none.txt";
    const std::string sAlone = tree.File("x.alone", "\1");
    const std::pair<std::string, long> cases[] = {
        {Quoted(sNone), ENOENT},
        {"", ENOENT},
        {Quoted(sNone + std::string(300, 'x')), ENOENT},
        {Quoted(sAlone + "/x"), ENOTDIR},
        {Quoted(sAlone), platform::SE_ERR_NOASSOC},
        {Quoted(tree.File("x.broken", "\1")), platform::SE_ERR_NOASSOC},
        {Quoted(tree.File("x.console", "\1")), platform::SE_ERR_NOASSOC},
    };
    for (const auto& [sFile, nCode] : cases) {
        EXPECT_EQ(Open(sFile), nCode) << sFile;
    }
    EXPECT_EQ(Open("Notepad.exe", "relative"), ENOENT);
    // Of these the program says nothing, so the shell does.
    const auto dismiss = [](QDialog& dialog) {
        const auto& text = Child<QLabel>(dialog, "qt_msgbox_label");
        EXPECT_TRUE(text.text().endsWith(QLatin1String(strerror(ENOENT))));
        EXPECT_LE(text.minimumSizeHint().width(), dialog.width()) << "cut off";
        Answers::Click("ok")(dialog);
    };
    const std::string sLong = sNone + "\n" + std::string(240, 'm');
    answers.Expect("launchFault", dismiss);
    EXPECT_EQ(Open("explorer.exe", sLong), ENOENT);
    answers.Expect("launchFault", dismiss);
    EXPECT_EQ(Open("rundll32.exe", kChoose + sLong), ENOENT);
    answers.Expect("launchFault", dismiss);
    EXPECT_FALSE(ShowProperties(Quoted(sLong)));
}

TEST_F(Launching, LetsTheUserChooseAProgram)
{
    const std::string sFile = tree.File("<b>&x\xFF.many", "x");
    // The fitting ones first, the usual one at their head; none that takes no file or does not want to show.
    answers.Expect("programChooser", [](QDialog& dialog) {
        auto& list = Child<QListWidget>(dialog, "programs");
        EXPECT_FALSE(dialog.isModal());
        std::string sShown;
        for (int n = 0; n < list.count(); ++n) {
            sShown += list.item(n)->text().toStdString() + "|";
        }
        EXPECT_EQ(sShown, "viewer|editor|Other applications|folders|Zebra|");
        EXPECT_EQ(list.currentRow(), 0);
        QTest::keyClicks(&list, QStringLiteral("z"));
        QTest::keyClick(&list, Qt::Key_Return);
    });
    EXPECT_GT(Open("rundll32.exe", kChoose + Quoted(sFile)), 32);
    EXPECT_EQ(programs.Started("Zebra").front(), sFile);

    // By a part of the name; what hides is not opened. A file that has gone is said, and the question stays.
    answers.Expect("programChooser", [&](QDialog& dialog) {
        auto& filter = Child<QLineEdit>(dialog, "filter");
        const auto& said = Child<QLabel>(dialog, "said");
        filter.setText(QStringLiteral("nothing like it"));
        QTest::keyClick(&filter, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible() && said.isVisible());
        filter.setText(QStringLiteral("E"));
        QTest::keyClick(&filter, Qt::Key_Down); // to the second
        unlink(sFile.c_str());
        QTest::keyClick(&filter, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible() && said.text().contains(QStringLiteral("No such file")));
        tree.File("<b>&x\xFF.many", "x");
        Answers::Click("open")(dialog);
    });
    EXPECT_GT(Open("rundll32.exe", kChoose + sFile), 32);
    EXPECT_EQ(programs.Started("editor").front(), sFile);
}

TEST_F(Launching, ShowsPropertiesInASheetOfItsOwn)
{
    const std::string sFile = tree.File("<i>\n\xFF.txt", "before");
    const std::string sOther = tree.File("other/<i>\n\xFF.txt");
    ASSERT_TRUE(ShowProperties(Quoted(sFile)));
    ASSERT_TRUE(ShowProperties(Quoted(sOther)));
    tree.File("<i>\n\xFF.txt", std::string(12'345, 'x'));
    chmod(sFile.c_str(), 04640);
    ASSERT_TRUE(ShowProperties(Quoted(sFile)));
    const auto sheets = desktop::StandingWindow::All();
    ASSERT_EQ(sheets.size(), 2U) << "the one that is open shows what is new";
    EXPECT_NE(sheets[0]->windowTitle(), sheets[1]->windowTitle());
    EXPECT_GT((sheets[0]->pos() - sheets[1]->pos()).manhattanLength(), 20);
    QDialog* const pSheet = sheets[sheets[0]->windowTitle().contains(QLatin1String("other")) ? 1 : 0];
    EXPECT_TRUE(QTest::qWaitForWindowActive(pSheet) && !pSheet->isModal());
    const auto shown = [&](const char* pWhat) { return Child<QLabel>(*pSheet, pWhat).text().toStdString(); };
    EXPECT_EQ(shown("Name") + shown("Folder"), "<i>\\x0A\\xFF.txt" + tree.sRoot + "/");
    EXPECT_EQ(shown("Permissions"), "rw-r----- (4640)");
    EXPECT_TRUE(shown("Size").ends_with(" bytes / 12.1 KiB")) << shown("Size");
    EXPECT_NE(shown("Kind").find("text/plain"), std::string::npos);
    for (QDialog* const pEach : sheets) {
        pEach->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(Launching, StartsNoSessionBus)
{
    // Where there is none, the libraries would run this.
    const std::string sStarter =
        tree.File("bin/dbus-launch", "#!/bin/sh\n: >'" + tree.sRoot + "/started'\nexit 1\n");
    chmod(sStarter.c_str(), 0755);
    setenv("PATH", (tree.sRoot + "/bin:" + getenv("PATH")).c_str(), 1);
    setenv("DISPLAY", ":77", 1);
    desktop::StartNoSessionBus();
    EXPECT_GT(Open(tree.File("x.txt")), 32);
    EXPECT_EQ(programs.Started("editor").back(), "") << "it sees our measure";
    EXPECT_FALSE(std::filesystem::exists(tree.sRoot + "/started"));
}

} // namespace

// SPDX-License-Identifier: MIT
#include "Answers.h"
#include "AskAside.h"
#include "Escaped.h"
#include "FolderModel.h"
#include "FolderTreeView.h"
#include "OnScreen.h"
#include "QtShellDialogs.h"
#include "SlowDisk.h"
#include "TempTree.h"
#include "WindowFunctions.h"

#include <QClipboard>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <array>
#include <future>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace {

using support::Answers;
using support::Child;

/// The test's own tree is the home folder.
class FileDialogs : public support::OnScreen
{
protected:
    FileDialogs()
    {
        setenv("HOME", tree.sRoot.c_str(), 1);
        for (const char* pFolder : {"/alpha/inner/most", "/bad\xFF", "/x.y"}) {
            std::filesystem::create_directories(tree.sRoot + pFolder);
        }
    }

    desktop::QtShellDialogs dialogs;
    support::TempTree tree;
    Answers answers;
};

TEST_F(FileDialogs, ShowFoldersByTheirNamesAndFindThemByTheirPaths)
{
    for (const char* pFolder : {"b", "b10", "b2", "C", ".hidden", "new\nline/\xFE", "\xC3\x84"}) {
        std::filesystem::create_directories(tree.sRoot + "/" + pFolder);
    }
    tree.File("file");
    EXPECT_EQ(symlink("b", (tree.sRoot + "/link").c_str()), 0);
    desktop::FolderModel model({{"/", "all"}, {tree.sRoot, "tree"}});
    for (const std::string& sPath :
         {tree.sRoot, tree.sRoot + "/bad\xFF", tree.sRoot + "/new\nline/\xFE", std::string("/usr/bin")}) {
        EXPECT_EQ(model.Path(desktop::FolderModel::Item(model.Find(sPath))), sPath);
    }
    for (const char* pNone : {"/none", "x", "/file", "/link"}) {
        EXPECT_FALSE(model.Find(tree.sRoot + pNone).isValid()) << pNone;
    }
    std::string sShown;
    const QModelIndex root = model.Find(tree.sRoot);
    for (int n = 0; n < model.rowCount(root); ++n) {
        sShown += model.index(n, 0, root).data().toString().toStdString() + "|";
    }
    EXPECT_EQ(sShown, "alpha|b|b2|b10|bad\\xFF|C|new\\x0Aline|x.y|\xC3\x84|.hidden|");
}

TEST_F(FileDialogs, ShowWhatIsInAFolderWhenItsDiskAnswers)
{
    std::promise<void> disk;
    support::disk::Arm(support::disk::Call::List, "alpha",
                       [answer = disk.get_future().share()] { answer.wait(); });
    desktop::FolderModel model({{tree.sRoot, "tree"}});
    desktop::FolderTreeView view(model);
    view.show();
    view.expand(model.Find(tree.sRoot));
    const QModelIndex alpha = model.Find(tree.sRoot + "/alpha");
    view.expand(alpha);
    EXPECT_TRUE(view.isExpanded(alpha) && model.hasChildren(alpha) && model.rowCount(alpha) == 0);
    EXPECT_FALSE(model.Find(tree.sRoot + "/alpha/inner").isValid());
    EXPECT_GT(desktop::ThreadsAside(), 0);
    disk.set_value();
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.indexBelow(alpha) == model.index(0, 0, alpha); }));
    EXPECT_EQ(model.rowCount(alpha), 1);
    EXPECT_TRUE(QTest::qWaitFor([] { return desktop::ThreadsAside() == 0; }));
    support::disk::Disarm();
}

TEST_F(FileDialogs, SelectWhatIsPastedOrDroppedAndWhatIsClosed)
{
    desktop::FolderModel model({{"/", "all"}, {tree.sRoot, "tree"}});
    desktop::FolderTreeView view(model);
    view.resize(200, 300);
    view.show();
    view.expand(model.Find(tree.sRoot));
    EXPECT_EQ(mkdir((tree.sRoot + "/alpha/ new").c_str(), 0755), 0);
    EXPECT_EQ(symlink("alpha", (tree.sRoot + "/link").c_str()), 0);
    tree.File("file");
    const auto selected = [&] { return model.Path(desktop::FolderModel::Item(view.currentIndex())); };
    const std::tuple<const char*, std::string, std::string> cases[] = {
        // The kind of data, the data, and what is selected then: if empty, what was before.
        {"text/plain", tree.sRoot + "/alpha/inner/most", "/alpha/inner/most"},
        {"text/plain", "\n '" + tree.sRoot + "/x.y/' \r\nmore", "/x.y"},
        {"text/plain", tree.sRoot + "/alpha/ new", "/alpha/ new"}, // made since alpha was listed
        {"text/uri-list", "file://host" + tree.sRoot + "/bad%FF\r\nfile:///usr\r\n", "/bad\xFF"},
        {"text/uri-list", "file://" + tree.sRoot + "/link/inner", "/alpha/inner"},
        {"text/uri-list", "file://" + tree.sRoot + "/file", ""},
        {"text/uri-list", "https://host/usr", ""},
        {"text/plain", tree.sRoot + "/none", ""},
    };
    for (const auto& [pKind, sData, sSelected] : cases) {
        for (const bool bDropped : {false, true}) {
            view.setCurrentIndex(model.Find(tree.sRoot));
            auto* const pData = new QMimeData;
            pData->setData(QLatin1String(pKind), QByteArray::fromStdString(sData));
            QApplication::clipboard()->setMimeData(pData);
            if (bDropped) {
                QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, pData, {}, {});
                QApplication::sendEvent(view.viewport(), &enter);
                EXPECT_EQ(enter.isAccepted(), !sSelected.empty()) << sData;
                QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, pData, {}, {});
                drop.setDropAction(Qt::MoveAction);
                QApplication::sendEvent(view.viewport(), &drop);
                EXPECT_TRUE(sSelected.empty() || drop.dropAction() == Qt::CopyAction)
                    << "the folder would go from where it came";
            } else {
                QTest::keySequence(&view, QKeySequence::Paste);
            }
            EXPECT_EQ(selected(), tree.sRoot + sSelected) << sData << bDropped;
        }
    }
    view.setCurrentIndex(model.Find(tree.sRoot + "/alpha/inner/most"));
    view.collapse(model.Find(tree.sRoot + "/x.y"));
    EXPECT_EQ(selected(), tree.sRoot + "/alpha/inner/most");
    view.collapse(model.Find(tree.sRoot + "/alpha"));
    EXPECT_EQ(selected(), tree.sRoot + "/alpha") << "what is hidden is not selected";
}

TEST_F(FileDialogs, ShowFoldersWithNoneInThem)
{
    desktop::FolderModel model({{tree.sRoot + "/alpha/inner/most", "home"}, {tree.sRoot + "/x.y", "other"}});
    desktop::FolderTreeView view(model);
    view.setCurrentIndex(model.index(0, 0));
    view.expand(view.currentIndex());
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.grab();
    EXPECT_FALSE(view.visualRect(model.index(1, 0)).isEmpty());
}

TEST_F(FileDialogs, WidenTheTreeForTheRowsInSight)
{
    desktop::FolderModel model({{tree.sRoot, "tree"}});
    desktop::FolderTreeView view(model);
    view.resize(150, 100);
    view.show();
    for (std::size_t n = 0; n < 40; ++n) {
        tree.File("z" + std::string(n, 'z') + "/file");
    }
    view.expand(model.index(0, 0));
    view.grab();
    const QModelIndex last = model.Find(tree.sRoot + "/" + std::string(40, 'z'));
    view.scrollTo(last);
    view.grab();
    const auto nNeeded = view.itemDelegate()->sizeHint({}, last).width();
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.visualRect(last).width() >= nNeeded; }));
}

class ChooseFolder : public FileDialogs
{
protected:
    /// The folder chosen by `answer` where the dialog is told to start with `sStart`, if that is not empty.
    std::string Choose(const std::string& sStart, const Answers::Answer& answer)
    {
        answers.Expect("folderChooser", answer);
        sStartFolder = sStart + '\0';
        platform::BROWSEINFO info;
        info.lpszTitle = "Select a folder.";
        info.lpfn = sStart.empty() ? nullptr : &OnMessage;
        const platform::ItemId item = dialogs.SHBrowseForFolderA(info);
        std::string sBuffer(4, '\0');
        EXPECT_EQ(dialogs.SHGetPathFromIDListA(item, sBuffer), item != 0);
        dialogs.CoTaskMemFree(item);
        return sBuffer.c_str(); // up to the NUL
    }

    static int OnMessage(platform::WindowHandle hWnd, unsigned uMsg, long /*lParam*/, long /*lpData*/)
    {
        if (uMsg == platform::BFFM_INITIALIZED) {
            platform::SendMessageA(hWnd, platform::BFFM_SETSELECTIONA, 1, sStartFolder);
        }
        return 0;
    }

    static std::string Shown(QDialog& dialog) { return Child<QLabel>(dialog, "folder").text().toStdString(); }

    static inline std::string sStartFolder;
};

TEST_F(ChooseFolder, StartsWhereItIsToldAndGivesExactPaths)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", tree.sRoot},
        {tree.sRoot + "/alpha/inner/", tree.sRoot + "/alpha/inner"},
        {tree.sRoot + "/bad\xFF/", tree.sRoot + "/bad\xFF"},
        {tree.sRoot + "/alpha/none/deeper/", tree.sRoot + "/alpha"},
        {"/no such folder at all", "/"},
        {"relative", tree.sRoot},
    };
    for (const auto& each : cases) {
        const auto confirm = [&](QDialog& dialog) {
            EXPECT_EQ(Shown(dialog), platform::Escaped(each.second));
            EXPECT_EQ(Child<QLabel>(dialog, "text").text(), "Select a folder.");
            auto& view = Child<desktop::FolderTreeView>(dialog, "folders");
            EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.currentIndex()).center()));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        };
        EXPECT_EQ(Choose(each.first, confirm), each.second);
    }
    EXPECT_EQ(Choose("/", Answers::Click("cancel")), "");
    EXPECT_EQ(Choose("/", Answers::Press(Qt::Key_Escape)), "");
    const auto byKeys = [](QDialog& /*dialog*/) {
        for (const auto key : {Qt::Key_Asterisk, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) {
            QTest::keyClick(QApplication::focusWidget(), key);
        }
    };
    EXPECT_EQ(Choose(tree.sRoot + "/alpha", byKeys), tree.sRoot + "/bad\xFF")
        << "* opens one folder, not all";
}

TEST_F(ChooseFolder, MakesAFolder)
{
    const auto make = [&](QDialog& dialog, const char* pName, bool bFault = false) {
        answers.Expect("newFolderQuestion", [=](QDialog& question) {
            dynamic_cast<QInputDialog&>(question).setTextValue(QLatin1String(pName));
            QTest::keyClick(&question, Qt::Key_Return);
        });
        if (bFault) {
            answers.Expect("newFolderFault", Answers::Click("ok"));
        }
        Answers::Click("newFolder")(dialog);
    };
    const std::string sShown = tree.sRoot + "/bad\\xFF/b&w";
    const auto makeSome = [&](QDialog& dialog) {
        make(dialog, "b&w");
        EXPECT_EQ(Shown(dialog), sShown);
        // Among its siblings, and what was there before keeps its place and its path.
        auto& folders = Child<desktop::FolderTreeView>(dialog, "folders");
        QTest::keyClick(&folders, Qt::Key_Left);
        make(dialog, "a");
        QTest::keyClick(&folders, Qt::Key_Down);
        EXPECT_EQ(Shown(dialog), sShown);
        make(dialog, "a/b", true); // what cannot be made is told
        Answers::Click("ok")(dialog);
    };
    EXPECT_EQ(Choose(tree.sRoot + "/bad\xFF", makeSome), tree.sRoot + "/bad\xFF/b&w");
    EXPECT_TRUE(std::filesystem::is_directory(tree.sRoot + "/bad\xFF/a"));
}

TEST_F(FileDialogs, TheAddFolderTreeTellsExactPaths)
{
    static desktop::QtShellDialogs shell;
    static std::string sStart, sTold;
    sStart = tree.sRoot + "/bad\xFF" + '\0';
    platform::BROWSEINFO info;
    info.lpfn = [](platform::WindowHandle hWnd, unsigned uMsg, long lParam, long /*lpData*/) {
        if (uMsg == platform::BFFM_INITIALIZED) {
            platform::SendMessageA(hWnd, platform::BFFM_SETSELECTIONA, 1, sStart);
            auto* const pTree = platform::GetWindow(hWnd, platform::GW_CHILD);
            platform::MoveWindow(pTree, 0, 0, 288, 211);
            EXPECT_EQ(desktop::WidgetOf(pTree)->size(), QSize(288, 211)) << "it fills its host";
            platform::SendMessageA(hWnd, platform::WM_CLOSE, 0, 0);
        } else {
            EXPECT_TRUE(shell.SHGetPathFromIDList(lParam, sTold));
        }
        return 0;
    };
    shell.SHBrowseForFolder(info);
    EXPECT_EQ(sTold, sStart);
}

class SaveFile : public FileDialogs
{
protected:
    /// The path chosen by `answer` in a dialog that starts in folder `sFolder`.
    std::string Ask(const std::string& sFolder, const Answers::Answer& answer,
                    const std::string& sProposed = {})
    {
        platform::OPENFILENAME request;
        request.lpstrFilter = std::string("Text Document (*.txt)\0*.TXT\0", 29);
        request.nFilterIndex = 1;
        request.lpstrFile = sProposed + std::string(260 - sProposed.size(), '\0');
        request.lpstrDefExt = "txt";
        request.lpstrInitialDir = sFolder;
        request.Flags = platform::OFN_OVERWRITEPROMPT;
        answers.Expect("saveChooser", answer);
        return dialogs.GetSaveFileNameA(request) ? request.lpstrFile.c_str() : "";
    }

    static void Type(QDialog& dialog, const std::string& sName)
    {
        auto& name = Child<QLineEdit>(dialog, "name");
        EXPECT_TRUE(name.hasFocus());
        name.setText(QString::fromStdString(sName));
        QTest::keyClick(&name, Qt::Key_Return);
    }
};

TEST_F(SaveFile, GivesTheExactPathOfWhatIsTyped)
{
    const std::array<std::string, 3> cases[] = {
        // the folder, what is typed, and what comes of it
        {"", "report", "/report.txt"},
        {"/bad\xFF", "report.log", "/bad\xFF/report.log"},
        {"/bad\xFF/", " r.v2 ", "/bad\xFF/r.v2"},
        {"/alpha/none", "../x.y/report", "/x.y/report.txt"}, // up to the nearest; the dot is in the folder
        {"/alpha", tree.sRoot + "/x", "/x.txt"},
        {"", ".hidden", "/.hidden.txt"},
        {"", "v1.2 list", "/v1.2 list.txt"},
        {"", "report.2024", "/report.2024.txt"},
        {"", "report.\u00e4", "/report.\u00e4"},
        {"", "report.", "/report..txt"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Ask(tree.sRoot + each[0], [&](QDialog& dialog) { Type(dialog, each[1]); }),
                  tree.sRoot + each[2]);
    }
    EXPECT_EQ(Ask("", Answers::Press(Qt::Key_Escape), "proposed"), "");
    EXPECT_EQ(Ask("", Answers::Click("save"), "proposed"), tree.sRoot + "/proposed.txt");
}

TEST_F(SaveFile, SaysWhatIsWrongAndAsksBeforeItReplaces)
{
    for (const char* pFile : {"alpha/report.txt", "alpha/ r 2.txt", "alpha/odd\xFF.txt", "alpha/other.log"}) {
        tree.File(pFile);
    }
    EXPECT_EQ(mkfifo((tree.sRoot + "/alpha/pipe.txt").c_str(), 0666), 0);
    const auto replace = [&](QDialog& dialog) {
        Type(dialog, "alpha"); // into the folder
        auto& files = Child<QListWidget>(dialog, "files");
        ASSERT_EQ(files.count(), 3);
        EXPECT_EQ(files.item(1)->text(), "odd\\xFF.txt");
        EXPECT_FALSE(files.item(1)->flags().testFlag(Qt::ItemIsSelectable)) << "its name cannot be typed";
        const auto& name = Child<QLineEdit>(dialog, "name");
        EXPECT_EQ(name.text(), QString());
        const std::pair<std::string, const char*> cases[] = {
            {"", "Please type a name for the file."},
            {"none/x", "There is no such folder."},
            {"pipe", "There is something of that name that is no file."},
            {std::string(300, 'n'), "File name too long."},
        };
        for (const auto& [sName, pFault] : cases) {
            Type(dialog, sName);
            EXPECT_EQ(Child<QLabel>(dialog, "fault").text(), pFault);
        }
        answers.Expect("replaceFile", Answers::Press(Qt::Key_Return));
        Type(dialog, "report"); // which alone does not exist
        EXPECT_TRUE(dialog.isVisible()) << "Enter must not replace";
        files.setCurrentRow(2);
        EXPECT_EQ(name.text(), "report.txt");
        answers.Expect("replaceFile", Answers::Click("yes"));
        Answers::Click("save")(dialog);
    };
    EXPECT_EQ(Ask(tree.sRoot, replace), tree.sRoot + "/alpha/report.txt");
    const auto pick = [&](QDialog& dialog) {
        answers.Expect("replaceFile", Answers::Click("yes"));
        Child<QListWidget>(dialog, "files").setCurrentRow(0);
        Answers::Click("save")(dialog);
    };
    EXPECT_EQ(Ask(tree.sRoot + "/alpha", pick), tree.sRoot + "/alpha/ r 2.txt") << "exactly what was picked";
}

} // namespace

#include "FolderModel.h"
#include "FolderView.h"
#include "MainWindow.h"
#include "PosixFiles.h"
#include "QtShell.h"
#include "TempTree.h"
#include "WidgetOf.h"
#include "mSysTree.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using desktop::FolderModel;
using desktop::FolderView;

/// Makes folders of these names in folder `sFolder`.
void MakeFolders(const std::string& sFolder, const std::vector<std::string>& names)
{
    for (const std::string& sName : names) {
        EXPECT_EQ(mkdir((sFolder + "/" + sName).c_str(), 0755), 0) << sName;
    }
}

std::vector<std::string> Shown(FolderModel& model, const QModelIndex& folder)
{
    if (model.canFetchMore(folder)) {
        model.fetchMore(folder);
    }
    std::vector<std::string> names;
    for (int n = 0; n < model.rowCount(folder); ++n) {
        names.push_back(model.index(n, 0, folder).data().toString().toStdString());
    }
    return names;
}

TEST(FolderModel, ShowsEveryFolderByItsName)
{
    const support::TempTree tree;
    const std::string sOdd = "new\nline";
    MakeFolders(tree.sRoot, {"b", "A", "c", ".hidden", "Bad\xFF", sOdd, "\xC3\x84", "\xC3\xA4"});
    MakeFolders(tree.sRoot + "/" + sOdd, {"\xFE"});
    tree.File("file");
    EXPECT_EQ(symlink("b", (tree.sRoot + "/link").c_str()), 0);
    FolderModel model({{"/", "all"}, {tree.sRoot, "tree"}});
    EXPECT_EQ(Shown(model, {}), (std::vector<std::string>{"all", "tree"}));
    const QModelIndex root = model.index(1, 0);
    EXPECT_EQ(Shown(model, root), (std::vector<std::string>{"A", "b", "Bad\\xFF", "c", "new\\x0Aline",
                                                            "\xC3\x84", "\xC3\xA4", ".hidden"}));
    // Every path leads to its item, and back.
    for (const std::string& sPath : {tree.sRoot, tree.sRoot + "/Bad\xFF", tree.sRoot + "/" + sOdd + "/\xFE",
                                     std::string("/"), std::string("/usr/bin")}) {
        const QModelIndex found = model.Find(sPath);
        EXPECT_EQ(model.Path(FolderModel::Item(found)), sPath);
        EXPECT_EQ(found, model.Index(FolderModel::Item(found)));
        const QModelIndex parent = found.parent();
        EXPECT_EQ(found, model.index(found.row(), 0, parent));
    }
    EXPECT_EQ(model.Find(tree.sRoot + "/Bad\xFF/").row(), 2);
    for (const std::string& sPath :
         {std::string(), tree.sRoot + "/none", tree.sRoot + "x", tree.sRoot + "/file"}) {
        EXPECT_FALSE(model.Find(sPath).isValid()) << sPath;
    }
    EXPECT_EQ(model.Path(0) + model.Path(-1) + model.Path(1'000'000), "");
}

TEST(FolderModel, ShowsAFolderThatCannotBeOpenedAsALeaf)
{
    const support::TempTree tree;
    MakeFolders(tree.sRoot, {"closed", "empty", "full", "gone"});
    MakeFolders(tree.sRoot + "/closed", {"x"});
    MakeFolders(tree.sRoot + "/full", {"x"});
    chmod((tree.sRoot + "/closed").c_str(), 0);
    chmod(tree.sRoot.c_str(), 0755);
    FolderModel model({{tree.sRoot, "tree"}});
    Shown(model, model.index(0, 0));
    rmdir((tree.sRoot + "/gone").c_str());
    const support::Unprivileged user;
    for (int n = 0; n < 4; ++n) {
        const QModelIndex folder = model.index(n, 0, model.index(0, 0));
        const bool bLeaf = folder.data() != "full";
        EXPECT_TRUE(model.hasChildren(folder)); // for all that is known
        EXPECT_EQ(model.LookInto(folder), bLeaf) << folder.data().toString().toStdString();
        EXPECT_FALSE(model.LookInto(folder)); // says so once
        EXPECT_EQ(model.hasChildren(folder), !bLeaf);
    }
}

/// The real tree in a window, in the place of the picture box. The test's own tree is the home folder.
class HostedTree : public MainWindow
{
protected:
    HostedTree() : m_host(&m_window)
    {
        setenv("HOME", tree.sRoot.c_str(), 1);
        platform::tSystem system = desktop.System();
        system.files = &m_files;
        system.shell = &m_qtShell;
        platform::UseSystem(system);
        m_host.setGeometry(14, 49, 288, 211);
        m_window.resize(317, 305);
        desktop::EnterWidget(form.picBrowse, &m_host);
        m_window.show();
        QObject::connect(&m_watchdog, &QTimer::timeout, &m_window, [this] {
            ADD_FAILURE() << "the dialog did not end";
            form.form.UnloadForm();
        });
    }
    ~HostedTree() override { desktop::RemoveWidget(form.picBrowse); }

    /// Opens the window, does `what` in it, and closes it.
    void WhileOpen(const std::function<void(FolderView&)>& what)
    {
        form.form.Show(false, &main.form);
        dialogs::oHost = &form.picBrowse;
        QTimer::singleShot(0, &m_window, [&] {
            auto* const pView = dynamic_cast<FolderView*>(m_host.findChild<QTreeView*>());
            EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
            if (pView != nullptr) {
                what(*pView);
            }
            form.cmdClose.Click();
        });
        m_watchdog.start(60'000);
        dialogs::ShowSysTree("");
        m_watchdog.stop();
        EXPECT_EQ(m_host.findChild<QTreeView*>(), nullptr) << "the tree stayed";
        EXPECT_FALSE(form.form.Loaded());
    }

    support::TempTree tree;
    dialogs::frmBrowse& form = dialogs::theBrowseForm();
    QWidget m_window;

private:
    desktop::PosixFiles m_files;
    desktop::QtShell m_qtShell;
    QWidget m_host;
    QTimer m_watchdog;
};

TEST_F(HostedTree, IsUsedByTheKeyboardAndTellsExactPaths)
{
    MakeFolders(tree.sRoot, {"alpha", "bad\xFF", "beta", ".config"});
    MakeFolders(tree.sRoot + "/alpha", {"inner"});
    MakeFolders(tree.sRoot + "/alpha/inner", {"innermost"});
    WhileOpen([&](FolderView& view) {
        EXPECT_EQ(view.geometry(), QRect(0, 0, 288, 211));
        EXPECT_TRUE(view.hasFocus());
        EXPECT_EQ(dialogs::sSelectedFolder, tree.sRoot); // home, and it is open
        const struct {
            Qt::Key key;
            std::string sFolder;
        } steps[] = {
            {Qt::Key_Period, "/.config"}, // the name's first letter
            {Qt::Key_Left, ""},           // out to the folder above
            {Qt::Key_Down, "/alpha"},
            {Qt::Key_Asterisk, "/alpha"}, // opens this folder, not all below
            {Qt::Key_Down, "/alpha/inner"},
            {Qt::Key_Down, "/bad\xFF"},
            {Qt::Key_Right, "/bad\xFF"}, // has nothing to open
            {Qt::Key_Down, "/beta"},
            {Qt::Key_Up, "/bad\xFF"},
        };
        for (const auto& step : steps) {
            QTest::keyClick(&view, step.key);
            EXPECT_EQ(dialogs::sSelectedFolder, tree.sRoot + step.sFolder) << step.key;
            EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.currentIndex()).center()));
        }
        form.cmdAdd.Click();
    });
    ASSERT_EQ(main.lvFolders.ListItems.Count(), 1U);
    EXPECT_EQ(main.lvFolders.ListItems(1).Key(), tree.sRoot + "/bad\xFF");
}

TEST_F(HostedTree, SurvivesTheEndOfItsHost)
{
    WhileOpen([&](FolderView& view) { delete &view; });
}

} // namespace

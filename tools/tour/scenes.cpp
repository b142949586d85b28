// SPDX-License-Identifier: MIT
// The part of the tour in which all goes well.

#include "Main.h"
#include "Stage.h"
#include "WidgetOf.h"
#include "frmAbout.h"
#include "frmBrowse.h"
#include "frmProgress.h"
#include "mSysTree.h"

#include <QApplication>
#include <QProgressBar>
#include <QTest>

namespace tour {
namespace {

using desktop::WidgetOf;

using Groups = std::vector<std::set<std::string>>;

/// The groups by content in both folders, without and with the hidden files.
Groups ByContent()
{
    return {{"Documents/report.odt", "Documents/Old/report.odt", "Documents/Old/report (last year).odt"},
            {"Documents/shopping.txt", "Documents/Old/notes.txt"},
            {"Documents/odd.txt", "Pictures/new\nline \xFF.txt"},
            {"Pictures/beach.jpg", "Pictures/Backup/beach (1).jpg"}};
}

Groups ByContentWithHidden()
{
    Groups groups = ByContent();
    groups.back().insert("Pictures/.hidden.jpg");
    groups.push_back({"Documents/letter.txt", "Documents/.config/letter.txt"});
    return groups;
}

/// The groups in both folders with the hidden files: by name and size, and by name.
Groups ByNameAndSize()
{
    return {{"Documents/report.odt", "Documents/Old/report.odt"},
            {"Documents/letter.txt", "Documents/.config/letter.txt"}};
}

Groups ByName()
{
    Groups groups = ByNameAndSize();
    groups.push_back({"Documents/shopping.txt", "Pictures/shopping.txt"});
    return groups;
}

void Start(Stage& stage)
{
    mainwindow::Main();
    auto& main = stage.main;
    QWidget* const pWindow = WidgetOf(&main.form);
    stage.WaitFor([&] { return pWindow->isActiveWindow(); }, "the window comes up and has the keyboard");
    stage.Expect(pWindow->windowTitle() == "Tallyfen", "the window is called Tallyfen");
    stage.ExpectEqual(stage.Status(), "Add at least one folder | 0", "the status");
    stage.Expect(main.form.ScaleWidth() == 8085 && main.form.ScaleHeight() == 5490,
                 "it opens as large as designed");
    stage.Expect(main.mnuOptionsSearchContent.Checked() && !main.mnuOptionsHidden.Checked(),
                 "files are to be compared by content, hidden ones left out");
    stage.Expect(!main.mnuFileOpen.Enabled() && !main.mnuSelect.Enabled() && main.mnuSearchFind.Enabled(),
                 "commands on results wait for results, a search can begin");
    stage.Expect(!WidgetOf(&main.lvFake)->isVisible(), "nothing covers the results");
    stage.Show("start");
}

void AddFolders(Stage& stage)
{
    auto& browse = dialogs::theBrowseForm();
    auto& folders = stage.main.lvFolders.ListItems;
    const auto talk = [&] {
        stage.Expect(!stage.main.form.Enabled(), "the main window waits");
        stage.ExpectEqual(dialogs::sSelectedFolder + "/", stage.tree.Path(""),
                          "the folder selected at first");
        stage.Type("Doc");
        stage.ExpectEqual(dialogs::sSelectedFolder, stage.tree.Path("Documents"), "the folder typed to");
        stage.Press(Qt::Key_Return);
        stage.Expect(folders.Count() == 1, "Enter adds the folder, and the window stays");
        stage.MeetMessage([&] { stage.Press(Qt::Key_Return); }, "This folder is already in the list.",
                          "added-twice");
        stage.Expect(folders.Count() == 1, "a folder is listed once");
        stage.Press(Qt::Key_Down);
        stage.ExpectEqual(dialogs::sSelectedFolder, stage.tree.Path("Pictures"), "the folder below");
        stage.Click(browse.cmdAdd);
        stage.Show("add-folder");
        stage.Press(Qt::Key_Escape);
    };
    stage.Meanwhile([&] { stage.Tool("Add"); }, browse.form, talk);
    stage.Expect(folders.Count() == 2, "two folders are listed");
    stage.ExpectEqual(stage.Status(), "Ready | 0", "the status");
    stage.Show("folders");
}

void Progress(Stage& stage)
{
    auto& main = stage.main;
    auto& progress = stage.progress;
    stage.Search([&] {
        stage.Show("progress");
        stage.ExpectEqual(progress.lblStatus.Caption(), "Comparing...", "what it is at");
        stage.Expect(!progress.lblFile.Caption().empty(), "the file compared is named");
        const auto* const pBar = WidgetOf(&progress.form)->findChild<QProgressBar*>();
        stage.Expect(pBar != nullptr && pBar->isVisible() && pBar->value() >= 50, "the bar is half full");
        stage.ExpectEqual(stage.Status(), "Working... | 0", "the status");
        const QWidget* const pCover = WidgetOf(&main.lvFake);
        stage.Expect(pCover->isVisible() && pCover->geometry() == WidgetOf(&main.lvFiles)->geometry(),
                     "an empty list covers the results");
        stage.Expect(main.lvFake.ListItems.Count() == 0 && main.lvFiles.ListItems.Count() > 0,
                     "rows come in out of sight");
        // Neither clicks nor keys reach the main window, and only the button ends the search.
        stage.Tool("New");
        QTest::keyClick(WidgetOf(&main.form), Qt::Key_F2);
        stage.Press(Qt::Key_Escape);
        WidgetOf(&progress.form)->close();
        stage.Expect(progress.form.Loaded() && main.lvFolders.ListItems.Count() == 2,
                     "nothing but Cancel does anything during a search");
    });
}

void Results(Stage& stage)
{
    auto& main = stage.main;
    QWidget* const pWindow = WidgetOf(&main.form);
    pWindow->resize(720, 400); // wide enough for the paths
    QTest::mouseMove(pWindow->windowHandle(), QPoint(700, 300));
    stage.ExpectGroups(ByContent(), "the list");
    stage.ExpectEqual(stage.Status(), "Done | 9", "the status");
    stage.Expect(!WidgetOf(&main.lvFake)->isVisible(), "the results can be seen");
    stage.Expect(main.mnuFileOpen.Enabled() && main.mnuSelect.Enabled(), "commands on results can be used");
    stage.Show("results");
}

/// A manual selection, and the context menu on it.
void PopupMenu(Stage& stage)
{
    auto& main = stage.main;
    stage.Meanwhile([&] { stage.Click(main.lvFiles, Qt::RightButton); },
                    [] { return QApplication::activePopupWidget() != nullptr; },
                    [&] {
                        stage.Show("popup-menu");
                        stage.Press(Qt::Key_Escape);
                    });
    stage.Open(main.mnuFile);
    stage.Open(main.mnuSelect);
    stage.Show("select-menu");
    stage.Press(Qt::Key_Escape);
    stage.Press(Qt::Key_Escape);
    stage.Open(main.mnuSearch);
    stage.Show("search-menu");
    stage.Press(Qt::Key_Escape);
    stage.Expect(QApplication::activePopupWidget() == nullptr, "Esc closes menus");
}

void Hidden(Stage& stage)
{
    stage.Open(stage.main.mnuOptions);
    stage.Choose(stage.main.mnuOptionsHidden);
    stage.Open(stage.main.mnuOptions);
    stage.Show("options");
    stage.Press(Qt::Key_Escape);
    stage.Search();
    stage.ExpectGroups(ByContentWithHidden(), "the list");
    stage.Show("hidden-files");
}

void Modes(Stage& stage)
{
    auto& main = stage.main;
    stage.Open(main.mnuOptions);
    stage.Choose(main.mnuOptionsSearchName);
    stage.Search();
    stage.ExpectGroups(ByName(), "the list by name");
    stage.Show("by-name");
    stage.Open(main.mnuOptions);
    stage.Choose(main.mnuOptionsSearchNameSize);
    stage.Search();
    stage.ExpectGroups(ByNameAndSize(), "the list by name and size");
    stage.Open(main.mnuOptions);
    stage.Choose(main.mnuOptionsSearchContent);
}

void Cancel(Stage& stage)
{
    stage.Search([&] { stage.Click(stage.progress.cmdCancel); });
    const std::size_t nRows = stage.main.lvFiles.ListItems.Count();
    stage.Expect(nRows > 0 && nRows < 12, "the list holds what had been found by then");
    stage.ExpectEqual(stage.Status(), "Done | " + std::to_string(nRows), "the status");
    stage.Show("cancelled");
}

void Splitter(Stage& stage)
{
    auto& main = stage.main;
    QWidget* const pBar = WidgetOf(&main.picSep);
    const QRect before = WidgetOf(&main.lvFiles)->geometry();
    QTest::mousePress(pBar, Qt::LeftButton, {}, {50, 1});
    QTest::mouseMove(pBar, {50, 41});
    QTest::mouseRelease(pBar, Qt::LeftButton, {}, {50, 1});
    const QRect after = WidgetOf(&main.lvFiles)->geometry();
    stage.Expect(after.top() > before.top() + 30 && after.bottom() == before.bottom(),
                 "the bar between the lists moves their border");
    stage.Show("splitter");
}

void About(Stage& stage)
{
    auto& about = dialogs::theAboutForm();
    const auto talk = [&] {
        stage.Expect(about.Label1.Caption().find("Tallyfen") != std::string::npos, "it names the program");
        stage.Show("about");
        stage.Click(about.btnOK);
    };
    stage.Open(stage.main.mnuHelp);
    stage.Meanwhile([&] { stage.Choose(stage.main.mnuHelpAbout); }, about.form, talk);
}

void End(Stage& stage)
{
    WidgetOf(&stage.main.form)->close();
    stage.Expect(!stage.main.form.Loaded() && WidgetOf(&stage.main.form) == nullptr, "the window closes");
}

} // namespace

std::vector<tScene> Scenes()
{
    return {
        {"start", Start},       {"add folders", AddFolders},
        {"progress", Progress}, {"results", Results},
        {"menus", PopupMenu},   {"hidden files", Hidden},
        {"modes", Modes},       {"cancel", Cancel},
        {"splitter", Splitter}, {"about", About},
        {"end", End},
    };
}

} // namespace tour

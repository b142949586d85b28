// SPDX-License-Identifier: MIT
// The part of the tour with the commands that act on results.

#include "GroupMarks.h"
#include "Stage.h"
#include "WidgetOf.h"
#include "cGroupRows.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tour {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const std::string& sPath)
{
    std::ostringstream content;
    content << std::ifstream(sPath, std::ios::binary).rdbuf();
    return content.str();
}

/// The shell's window with that object name, or null.
QWidget* Shown(const char* pName)
{
    for (QWidget* const pWindow : QApplication::topLevelWidgets()) {
        if (pWindow->objectName() == QLatin1String(pName) && pWindow->isVisible() &&
            pWindow->isActiveWindow()) {
            return pWindow;
        }
    }
    return nullptr;
}

/// Handles the shell's window that `act` opens.
void Meet(Stage& stage, const std::function<void()>& act, const char* pWindow,
          const std::function<void()>& talk)
{
    stage.Meanwhile(act, [pWindow] { return Shown(pWindow) != nullptr; }, talk);
    stage.Expect(Shown(pWindow) == nullptr, std::string(pWindow) + " has gone");
}

void Press(Stage& stage, const char* pWindow, const char* pButton)
{
    QWidget* const pShown = Shown(pWindow);
    stage.Expect(pShown != nullptr, std::string(pWindow) + " is up");
    stage.Click(pShown == nullptr ? nullptr : pShown->findChild<QPushButton*>(QLatin1String(pButton)));
}

/// The row of a file, by its path relative to the home folder.
platform::ListItem Row(Stage& stage, const std::string& sName)
{
    auto& rows = stage.main.lvFiles.ListItems;
    std::size_t n = 1;
    while (n < rows.Count() && rows(n).Key() != stage.tree.Path(sName)) {
        ++n;
    }
    stage.Expect(rows(n).Key() == stage.tree.Path(sName), sName + " is listed");
    return rows(n);
}

/// Selects only the row of a file by a mouse click.
void ClickRow(Stage& stage, const std::string& sName)
{
    auto* const pView = qobject_cast<QAbstractItemView*>(desktop::WidgetOf(&stage.main.lvFiles));
    const auto nRow = static_cast<int>(Row(stage, sName).Index() - 1);
    const QModelIndex index = pView->model()->index(nRow, 0);
    pView->scrollTo(index);
    QTest::mouseClick(pView->viewport(), Qt::LeftButton, {}, pView->visualRect(index).center());
    stage.Expect(stage.main.lvFiles.ListItems.SelectedCount() == 1 && stage.main.bItemHit,
                 "one row is selected");
}

void SelectByRule(Stage& stage)
{
    auto& main = stage.main;
    stage.Search();
    stage.Open(main.mnuFile);
    stage.Open(main.mnuSelect);
    stage.Choose(main.mnuSelectDuplicatedFiles);
    for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
        const auto row = main.lvFiles.ListItems(n);
        stage.Expect(row.Selected() == (row.SmallIcon() != platform::kMarkFirst),
                     "all rows but the first of each group are selected");
    }
    stage.Show("duplicates-selected");
}

/// A copy onto another file with the same name: first refused, then accepted.
void Replace(Stage& stage)
{
    const std::string sThere = stage.tree.Path("Pictures/shopping.txt");
    const auto copy = [&](const char* pPicture, const char* pAnswer) {
        ClickRow(stage, "Documents/shopping.txt");
        const auto choose = [&] {
            Meet(
                stage, [&] { stage.Tool("Copy To"); }, "folderChooser",
                [&] {
                    stage.Type("Pic");
                    if (pPicture != nullptr) {
                        stage.Show("folder-chooser");
                    }
                    stage.Press(Qt::Key_Return);
                });
        };
        const auto answer = [&] {
            Meet(stage, choose, "replaceQuestion", [&] {
                if (pPicture != nullptr) {
                    stage.Show(pPicture);
                }
                Press(stage, "replaceQuestion", pAnswer);
            });
        };
        Meet(stage, answer, "operationSummary", [&] {
            stage.Show(std::string("summary-") + pAnswer);
            stage.Press(Qt::Key_Escape);
        });
    };
    copy("replace-question", "skip");
    stage.ExpectEqual(ContentOf(sThere), "A frame", "a file that was skipped");
    copy(nullptr, "replace");
    stage.ExpectEqual(ContentOf(sThere), "", "a file that was replaced");
    stage.ExpectEqual(ContentOf(stage.tree.Path("../data/Trash/files/shopping.txt")), "A frame",
                      "what was replaced, in the trash");
    stage.Expect(Row(stage, "Documents/shopping.txt").SmallIcon() <= platform::kMarkLast,
                 "the mark of a copied file stays blue");
}

/// A file copied onto itself: nothing happens, and this is reported.
void CopyOntoItself(Stage& stage)
{
    ClickRow(stage, "Pictures/beach.jpg");
    const auto choose = [&] {
        Meet(stage, [&] { stage.Tool("Copy To"); }, "folderChooser", [&] { stage.Press(Qt::Key_Return); });
    };
    Meet(stage, choose, "operationSummary", [&] {
        stage.Show("summary");
        stage.Press(Qt::Key_Escape);
    });
}

void SelectBy(Stage& stage, const platform::MenuItem& rule)
{
    stage.Open(stage.main.mnuFile);
    stage.Open(stage.main.mnuSelect);
    stage.Choose(rule);
}

/// Questions about files of which no copy would stay, or might not stay; all are declined.
void Decide(Stage& stage)
{
    const std::string sReport = stage.tree.Path("Documents/Old/report.odt");
    const std::string sContent = ContentOf(sReport);
    const auto time = fs::last_write_time(sReport);
    const auto press = [&] { stage.Press(Qt::Key_Delete); };
    const auto ask = [&](const char* pPicture, Qt::Key answer) {
        Meet(stage, press, "confirmOperation", [&] {
            stage.Show(pPicture);
            stage.Press(answer);
        });
    };
    SelectBy(stage, stage.main.mnuSelectAll);
    ask("confirmation-no-copy", Qt::Key_Return);
    stage.Expect(fs::exists(sReport), "where no copy stays, Enter is no");

    SelectBy(stage, stage.main.mnuSelectDuplicatedFiles);
    fs::last_write_time(sReport, time + std::chrono::hours(1));
    ask("confirmation-changed", Qt::Key_Escape);
    Meet(stage, press, "confirmOperation", [&] {
        Press(stage, "confirmOperation", "unfold");
        stage.Show("confirmation-names");
        stage.Press(Qt::Key_Escape);
    });

    // Replaces the file found by another one that looks the same.
    ClickRow(stage, "Documents/Old/report.odt");
    std::ofstream(sReport) << std::string(sContent.size(), 'x');
    fs::last_write_time(sReport, time);
    Meet(
        stage, [&] { ask("confirmation-one", Qt::Key_Return); }, "operationSummary",
        [&] {
            stage.Show("summary-spared");
            stage.Press(Qt::Key_Escape);
        });
    stage.Expect(fs::exists(sReport), "what differs from the copy that stays does not go");
    std::ofstream(sReport) << sContent;
    fs::last_write_time(sReport, time);
}

/// After a search by name the contents have not been compared.
void DecideByName(Stage& stage)
{
    stage.Open(stage.main.mnuOptions);
    stage.Choose(stage.main.mnuOptionsSearchName);
    stage.Search();
    SelectBy(stage, stage.main.mnuSelectDuplicatedFiles);
    Meet(
        stage, [&] { stage.Press(Qt::Key_Delete); }, "confirmOperation",
        [&] {
            stage.Show("confirmation-by-name");
            stage.Press(Qt::Key_Escape);
        });
    stage.Open(stage.main.mnuOptions);
    stage.Choose(stage.main.mnuOptionsSearchContent);
}

void Delete(Stage& stage)
{
    auto& main = stage.main;
    SelectBy(stage, main.mnuSelectDuplicatedFiles);
    std::vector<std::string> selected;
    for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
        if (main.lvFiles.ListItems(n).Selected()) {
            selected.push_back(main.lvFiles.ListItems(n).Key());
        }
    }
    const auto act = [&] { stage.Press(Qt::Key_Delete); };
    Meet(stage, act, "confirmOperation", [&] {
        stage.Show("confirmation");
        stage.Expect(!main.form.Enabled(), "the main window waits");
        stage.Press(Qt::Key_Escape);
    });
    for (const std::string& sPath : selected) {
        stage.Expect(fs::exists(fs::symlink_status(sPath)), "who says no keeps his files");
    }
    Meet(stage, act, "confirmOperation", [&] { stage.Press(Qt::Key_Return); });
    for (const std::string& sPath : selected) {
        stage.Expect(!fs::exists(fs::symlink_status(sPath)), "the selected files have gone");
    }
    for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
        const auto row = main.lvFiles.ListItems(n);
        stage.Expect(row.Selected() == (row.SmallIcon() > platform::kMarkLast),
                     "red marks tell what has gone");
    }
    const fs::directory_iterator trash(stage.tree.Path("../data/Trash/files"));
    stage.Expect(static_cast<std::size_t>(std::distance(begin(trash), end(trash))) == selected.size() + 1,
                 "they are in the trash, with what was replaced");
    stage.Show("deleted");
}

void Report(Stage& stage)
{
    Meet(
        stage, [&] { stage.Press(Qt::Key_F4); }, "saveChooser",
        [&] {
            stage.Type("duplicates");
            stage.Show("save");
            stage.Press(Qt::Key_Return);
        });
    const std::string sReport = stage.launches.opened.empty() ? "" : stage.launches.opened.back();
    stage.Expect(sReport.ends_with("/duplicates.txt"), "the report is opened");
    const std::string sText = ContentOf(sReport);
    stage.Expect(sText.starts_with("Tallyfen Report\r\nGenereted on ") && sText.ends_with("\r\n\r\n-->\r\n"),
                 "the report has its head and its end");
    const auto nLines = std::count(sText.begin(), sText.end(), '\n');
    std::size_t nGroups = 0;
    for (std::size_t n = 1; n <= stage.main.lvFiles.ListItems.Count(); ++n) {
        nGroups += BeginsGroup(stage.main.lvFiles.ListItems(n).SmallIcon()) ? 1U : 0U;
    }
    stage.Expect(static_cast<std::size_t>(nLines) == stage.main.lvFiles.ListItems.Count() + nGroups + 4,
                 "it has a line for each file and one before each group");
    stage.Expect(sText.find("new\\x0Aline \\xFF.txt\r\n") != std::string::npos, "no name breaks a line");
    stage.Write(sText);
}

void LookAtOneFile(Stage& stage)
{
    std::string sName = "Pictures/beach.jpg";
    if (!fs::exists(stage.tree.Path(sName))) {
        sName = fs::exists(stage.tree.Path("Pictures/.hidden.jpg")) ? "Pictures/.hidden.jpg"
                                                                    : "Pictures/Backup/beach (1).jpg";
    }
    ClickRow(stage, sName);
    stage.Open(stage.main.mnuFile);
    stage.Choose(stage.main.mnuFileOpen);
    stage.ExpectEqual(stage.launches.opened.back(), '"' + stage.tree.Path(sName) + '"', "what is opened");
    stage.Tool("Properties");
    stage.WaitFor([] { return Shown("propertySheet") != nullptr; }, "the properties come up");
    stage.Show("properties");
    Press(stage, "propertySheet", "close");
    stage.Open(stage.main.mnuFile);
    stage.Open(stage.main.mnuFileOpenWith);
    stage.Choose(stage.main.mnuFileChooseProgram);
    stage.WaitFor([] { return Shown("programChooser") != nullptr; }, "the programs come up");
    stage.Show("choose-program");
    stage.Press(Qt::Key_Escape);
    stage.WaitFor([&] { return desktop::WidgetOf(&stage.main.form)->isActiveWindow(); },
                  "the main window has the keyboard again");
}

} // namespace

std::vector<tScene> Operations()
{
    return {
        {"selection", SelectByRule},
        {"replace", Replace},
        {"copy onto itself", CopyOntoItself},
        {"moment of decision", Decide},
        {"delete", Delete},
        {"report", Report},
        {"one file", LookAtOneFile},
        {"decision by name", DecideByName},
    };
}

} // namespace tour

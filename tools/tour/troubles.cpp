// SPDX-License-Identifier: MIT
// The part of the tour in which something goes wrong.

#include "Stage.h"
#include "WidgetOf.h"

#include <QApplication>
#include <QWidget>
#include <filesystem>

namespace tour {
namespace {

/// A missing folder and one that cannot be opened, among others.
void LostFolders(Stage& stage)
{
    stage.tree.File("Music/gone.ogg", "soon");
    stage.tree.File("Documents/Closed/letter.txt", "Dear Ms Example,");
    stage.tree.File("Documents/twin.txt", "Dear Ms Example,");
    stage.tree.File("Pictures/twin.txt", "Dear Ms Example,");
    auto& folders = stage.main.lvFolders.ListItems;
    folders.Add(stage.tree.Path("Music"), stage.tree.Path("Music"), 1);
    std::filesystem::remove_all(stage.tree.Path("Music"));
    std::filesystem::permissions(stage.tree.Path("Documents/Closed"), std::filesystem::perms::none);
    stage.Search();
    std::filesystem::permissions(stage.tree.Path("Documents/Closed"), std::filesystem::perms::owner_all);
    bool bGone = false;
    int nTwins = 0;
    for (std::size_t n = 1; n <= stage.main.lvFiles.ListItems.Count(); ++n) {
        bGone = bGone || stage.main.lvFiles.ListItems(n).Text() == "gone.ogg";
        nTwins += stage.main.lvFiles.ListItems(n).Text() == "twin.txt" ? 1 : 0;
    }
    stage.Expect(!bGone && nTwins == 2, "what is there is compared, what has gone is not");
    stage.Show("lost-folders");
}

void NoFolders(Stage& stage)
{
    stage.Open(stage.main.mnuSearch);
    stage.Choose(stage.main.mnuSearchClearFolders);
    stage.MeetMessage([&] { stage.Tool("Search"); }, "Please add at least one folder.", "no-folders");
    stage.Expect(stage.main.lvFiles.ListItems.Count() > 0, "the results of the search before stay");
}

/// Window sizes that are too small for the layout.
void SmallWindows(Stage& stage)
{
    QWidget& window = *desktop::WidgetOf(&stage.main.form);
    const QSize usual = window.size();
    for (const QSize& size : {QSize(320, 200), QSize(1, 1), QSize(4000, 60), QSize(60, 3000)}) {
        window.resize(size);
        window.grab();
    }
    window.resize(320, 240);
    stage.Show("small");
    window.resize(usual);
    stage.Expect(desktop::WidgetOf(&stage.main.lvFiles)->width() == usual.width(),
                 "the lists take the room again");
    stage.Show("as-before");
}

void LargeLetters(Stage& stage)
{
    auto& main = stage.main;
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(2 * usual.pointSizeF());
    QApplication::setFont(large);
    QWidget& window = *desktop::WidgetOf(&main.form);
    const auto* const pTools = desktop::WidgetOf(&main.Toolbar1);
    stage.WaitFor([&] { return pTools->font().pointSizeF() == large.pointSizeF(); }, "letters get larger");
    window.resize(900, 600);
    const auto* const pFolders = desktop::WidgetOf(&main.lvFolders);
    const auto* const pFiles = desktop::WidgetOf(&main.lvFiles);
    stage.Expect(!pTools->geometry().intersects(pFolders->geometry()), "the toolbar covers no list");
    stage.Expect(pFiles->y() >= pFolders->geometry().bottom() &&
                     pFiles->geometry().bottom() + 1 == desktop::WidgetOf(&main.StatusBar1)->y(),
                 "the lists share the room below it");
    stage.Show("large-letters");
    QApplication::setFont(usual);
}

} // namespace

std::vector<tScene> Troubles()
{
    return {{"lost folders", LostFolders},
            {"no folders", NoFolders},
            {"small windows", SmallWindows},
            {"large letters", LargeLetters}};
}

} // namespace tour

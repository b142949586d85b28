// SPDX-License-Identifier: MIT
// The main form and the dialogs beside it: what a keyboard alone reaches, and what assistive programs hear.

#include "FolderChooser.h"
#include "OnScreen.h"
#include "SaveChooser.h"
#include "frmMain.h"

#include <QAccessible>
#include <QMenu>
#include <QMetaEnum>
#include <QTimer>
#include <set>
#include <string>

namespace {

using desktop::WidgetOf;
using support::OnScreen;

/// Notes each thing at and below `accessible` as "Role: name". Nobody may lack a name who is acted on, or
/// told of by the name alone.
void Listen(QAccessibleInterface& accessible, std::multiset<std::string>& heard)
{
    static const std::set<QAccessible::Role> kNamed = {
        QAccessible::Window,     QAccessible::Dialog,      QAccessible::ToolBar,
        QAccessible::StatusBar,  QAccessible::Splitter,    QAccessible::Tree,
        QAccessible::PushButton, QAccessible::MenuItem,    QAccessible::EditableText,
        QAccessible::ComboBox,   QAccessible::ProgressBar, QAccessible::ColumnHeader};
    const QAccessible::Role role = accessible.role();
    const std::string sRole = QMetaEnum::fromType<QAccessible::Role>().valueToKey(role);
    const std::string sName = accessible.text(QAccessible::Name).toStdString();
    EXPECT_FALSE(kNamed.contains(role) && sName.empty()) << sRole;
    EXPECT_FALSE(accessible.text(QAccessible::Description).contains(QLatin1Char('<'))) << sName;
    heard.insert(sRole + ": " + sName);
    for (int n = 0; n < accessible.childCount(); ++n) {
        if (QAccessibleInterface* const pChild = accessible.child(n)) {
            Listen(*pChild, heard);
        }
    }
}

void ExpectHeard(QWidget& window, std::initializer_list<const char*> wanted)
{
    std::multiset<std::string> heard;
    Listen(*QAccessible::queryAccessibleInterface(&window), heard);
    for (const char* pWanted : wanted) {
        EXPECT_EQ(heard.count(pWanted), 1) << pWanted;
    }
}

class MainForm : public OnScreen
{
protected:
    MainForm()
    {
        Show(main.form);
        for (const int nMark : {2, 3, 7}) {
            const std::string sName = "file " + std::to_string(nMark);
            main.lvFiles.ListItems.Add("/a/" + sName, sName, nMark);
        }
        WidgetOf(&main.lvFiles)->grab(); // rows are taken in when they are painted
    }

    mainwindow::frmMain main;
};
using Accessibility = MainForm;

TEST_F(MainForm, PanelsAreSetInAndHideWhatIsBelowThem)
{
    const QWidget* const pBar = WidgetOf(&main.StatusBar1);
    const QRgb background = pBar->palette().color(QPalette::Window).rgb();
    WidgetOf(&main.form)->resize(300, 150); // a list below reaches under the status bar
    const QImage window = WidgetOf(&main.form)->grab().toImage();
    EXPECT_EQ(window.pixel(pBar->mapTo(pBar->window(), QPoint(100, 0))), background);
    const QWidget* const pPanel = WidgetOf(&main.StatusBar1.Panels(1));
    EXPECT_NE(window.pixel(pPanel->mapTo(pPanel->window(), QPoint(pPanel->width() / 2, 0))), background);
}

TEST_F(Accessibility, EverythingHasItsName)
{
    ExpectHeard(*WidgetOf(&main.form),
                {"Window: Tallyfen", "Tree: Folders to compare", "Tree: Duplicated files found",
                 "ToolBar: Commands", "StatusBar: Status", "Splitter: Border between the lists",
                 "Button: Move To", "MenuItem: Search Now", "StaticText: Add at least one folder",
                 "TreeItem: file 2, first of group", "TreeItem: file 3, in group",
                 "TreeItem: file 7, last of group, gone"});
    desktop::FolderChooser folderChooser({.lpszTitle = "Select a folder."});
    ExpectHeard(folderChooser, {"Tree: Folders"});
    platform::OPENFILENAME request;
    request.lpstrTitle = "Save As";
    desktop::SaveChooser saveChooser(request);
    saveChooser.accept();
    ExpectHeard(saveChooser, {"Tree: Folders", "Notification: Please type a name for the file."});
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight) << "whatever the desktop's language";
}

TEST_F(Accessibility, ColumnHeadersCanBePressed)
{
    for (const char* const pFolder : {"/a", "/b"}) {
        main.lvFolders.ListItems.Add(pFolder, pFolder, 1);
    }
    QAccessibleInterface* const pList = QAccessible::queryAccessibleInterface(WidgetOf(&main.lvFolders));
    QAccessibleInterface* const pHeader = pList->child(0);
    QAccessibleActionInterface* const pAction = pHeader != nullptr ? pHeader->actionInterface() : nullptr;
    ASSERT_NE(pAction, nullptr);
    EXPECT_EQ(pHeader->text(QAccessible::Name).toStdString(), main.lvFolders.ColumnHeaders(1).sText);
    EXPECT_EQ(pHeader->parent(), pList);
    EXPECT_EQ(pList->indexOfChild(pHeader), 0);
    const QPoint middle = pHeader->rect().center();
    EXPECT_EQ(pList->childAt(middle.x(), middle.y()), pHeader);
    pAction->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(main.lvFolders.ListItems(1).Key(), "/b"); // the first press sorts downwards
}

TEST_F(Accessibility, TheMenuKeyOpensTheMenuAtItsFirstCommand)
{
    WidgetOf(&main.lvFiles)->setFocus();
    QAction* pActive = nullptr;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* const pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (pMenu != nullptr && pMenu->activeAction() != nullptr) {
            pActive = pMenu->activeAction();
            pMenu->close();
        }
    });
    look.start(0);
    QTest::keyClick(WidgetOf(&main.lvFiles), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(pActive != nullptr && pActive->isEnabled());
}

} // namespace

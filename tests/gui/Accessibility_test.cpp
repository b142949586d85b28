// What assistive programs hear of the windows, and what a keyboard alone reaches.

#include "FolderChooser.h"
#include "OutcomeSummary.h"
#include "PacedEventLoop.h"
#include "PosixFiles.h"
#include "QtWindows.h"
#include "SaveChooser.h"
#include "System.h"
#include "UserInterface.h"
#include "WidgetOf.h"
#include "frmMain.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

using desktop::WidgetOf;

/// What a user acts on, or gets told about by its name alone.
bool NeedsName(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::Window:
    case QAccessible::Dialog:
    case QAccessible::ToolBar:
    case QAccessible::StatusBar:
    case QAccessible::Splitter:
    case QAccessible::Tree:
    case QAccessible::ColumnHeader:
    case QAccessible::PushButton:
    case QAccessible::MenuItem:
    case QAccessible::EditableText:
    case QAccessible::ComboBox:
    case QAccessible::ProgressBar:
        return true;
    default:
        return false;
    }
}

/// Notes each thing below `accessible` as "role: name", by the number of its role. Nobody may lack a name.
void Listen(QAccessibleInterface& accessible, std::multiset<std::string>& heard)
{
    const QAccessible::Role role = accessible.role();
    const std::string sName = accessible.text(QAccessible::Name).toStdString();
    EXPECT_FALSE(NeedsName(role) && sName.empty())
        << "role " << role << " in " << accessible.parent()->text(QAccessible::Name).toStdString();
    EXPECT_EQ(accessible.text(QAccessible::Description).indexOf(QLatin1Char('<')), -1) << sName;
    heard.insert(std::to_string(role) + ": " + sName);
    for (int n = 0; n < accessible.childCount(); ++n) {
        if (QAccessibleInterface* const pChild = accessible.child(n)) {
            Listen(*pChild, heard);
        }
    }
}

std::multiset<std::string> Heard(QWidget& window)
{
    std::multiset<std::string> heard;
    Listen(*QAccessible::queryAccessibleInterface(&window), heard);
    return heard;
}

class Accessibility : public ::testing::Test
{
protected:
    Accessibility()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        desktop::PutOnFace();
        platform::tSystem system;
        system.files = &m_files;
        system.events = &m_events;
        system.screen = &windows;
        system.messages = &windows;
        system.windows = &windows;
        platform::UseSystem(system);
        main.form.Show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(WidgetOf(&main.form)));
    }

    void TearDown() override
    {
        main.form.UnloadForm();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void AddRows()
    {
        for (const int nMark : {2, 3, 7}) {
            const std::string sName = "file " + std::to_string(nMark);
            ASSERT_TRUE(main.lvFiles.ListItems.Add("/a/" + sName, sName, nMark));
        }
        WidgetOf(&main.lvFiles)->grab(); // rows are taken in when they are painted
    }

    desktop::QtWindows windows;
    mainwindow::frmMain main;

private:
    desktop::PosixFiles m_files;
    desktop::PacedEventLoop m_events{[] { QApplication::processEvents(); }};
};

TEST_F(Accessibility, EverythingInTheWindowHasItsName)
{
    AddRows();
    const auto heard = Heard(*WidgetOf(&main.form));
    const auto says = [](QAccessible::Role role, const char* pName) {
        return std::to_string(role) + ": " + pName;
    };
    for (const std::string& sWanted :
         {says(QAccessible::Window, "Tallyfen"), says(QAccessible::Tree, "Folders to compare"),
          says(QAccessible::Tree, "Duplicated files found"), says(QAccessible::ToolBar, "Commands"),
          says(QAccessible::StatusBar, "Status"), says(QAccessible::Splitter, "Border between the lists"),
          says(QAccessible::PushButton, "Move To"), says(QAccessible::MenuItem, "Search Now"),
          says(QAccessible::StaticText, "Add at least one folder"),
          says(QAccessible::TreeItem, "file 2, first of group"),
          says(QAccessible::TreeItem, "file 3, in group"),
          says(QAccessible::TreeItem, "file 7, last of group, gone")}) {
        EXPECT_EQ(heard.count(sWanted), 1) << sWanted;
    }
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight) << "whatever the desktop's language";
}

TEST_F(Accessibility, EverythingInTheShellsWindowsHasItsName)
{
    platform::BROWSEINFO folder;
    folder.lpszTitle = "Select a folder.";
    desktop::FolderChooser folderChooser(folder);
    platform::OPENFILENAME file;
    file.lpstrTitle = "Save As";
    desktop::SaveChooser saveChooser(file);
    for (QWidget* pWindow : {static_cast<QWidget*>(&folderChooser), static_cast<QWidget*>(&saveChooser)}) {
        EXPECT_EQ(Heard(*pWindow).count(std::to_string(QAccessible::Tree) + ": Folders"), 1);
    }
    saveChooser.accept();
    EXPECT_EQ(Heard(saveChooser)
                  .count(std::to_string(QAccessible::Notification) + ": Please type a name for the file."),
              1);
}

TEST_F(Accessibility, TabComesBackToWhereItStarted)
{
    desktop::tOperationOutcome outcome;
    outcome.notDone.push_back({"/a/b", "Why."});
    desktop::OutcomeSummary summary(nullptr, {}, outcome);
    summary.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&summary));
    std::set<QString> reached;
    for (int n = 0; n < 3; ++n) {
        QTest::keyClick(summary.focusWidget(), Qt::Key_Tab);
        reached.insert(summary.focusWidget()->objectName());
    }
    EXPECT_EQ(reached, (std::set<QString>{"close", "copy", "notDone"}));
}

TEST_F(Accessibility, TheMenuKeyOpensTheMenuAtTheCurrentRow)
{
    AddRows();
    main.lvFiles.SetSelectedItem(2);
    auto* const pRows = dynamic_cast<QTreeView*>(WidgetOf(&main.lvFiles));
    ASSERT_NE(pRows, nullptr);
    pRows->setFocus();
    const auto ask = [&](const std::function<void()>& press) {
        QPoint place;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            if (auto* const pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                look.stop();
                place = pRows->viewport()->mapFromGlobal(pMenu->pos());
                EXPECT_TRUE(QTest::qWaitFor([&] { return pMenu->activeAction() != nullptr; }));
                EXPECT_TRUE(pMenu->activeAction() != nullptr && pMenu->activeAction()->isEnabled());
                pMenu->close();
            }
        });
        look.start(0);
        press();
        return place;
    };
    const auto menuKey = [&](QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, {}, {});
        QApplication::sendEvent(pRows, &event);
    };
    const QRect row = pRows->visualRect(pRows->model()->index(2, 0));
    EXPECT_TRUE(row.contains(ask([&] { menuKey(QContextMenuEvent::Keyboard); })));
    EXPECT_TRUE(row.contains(ask([&] { QTest::keyClick(pRows, Qt::Key_F10, Qt::ShiftModifier); })));
    EXPECT_EQ(ask([&] { menuKey(QContextMenuEvent::Mouse); }), QPoint()) << "the mouse has its own way";
}

} // namespace

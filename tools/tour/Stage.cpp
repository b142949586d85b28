// SPDX-License-Identifier: MIT
#include "Stage.h"

#include "Escaped.h"
#include "GroupMarks.h"
#include "Menu.h"
#include "Picture.h"
#include "WidgetOf.h"
#include "WindowFunctions.h"
#include "cGroupRows.h"
#include "frmProgress.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>

namespace tour {
namespace {

using desktop::WidgetOf;

std::string Number(int n)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d", n);
    return text.data();
}

std::string Lines(const std::vector<std::set<std::string>>& groups)
{
    std::string sLines;
    for (const auto& group : groups) {
        for (const std::string& sFile : group) {
            sLines += (sFile == *group.begin() ? "    " : " = ") + platform::Escaped(sFile);
        }
        sLines += '\n';
    }
    return sLines;
}

bool IsUp(const platform::Form& form)
{
    const QWidget* const pWindow = WidgetOf(&form);
    return pWindow != nullptr && pWindow->isVisible() && pWindow->isActiveWindow();
}

QMessageBox* MessageUp()
{
    auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return pBox != nullptr && pBox->isVisible() && pBox->isActiveWindow() ? pBox : nullptr;
}

/// Activates the top window if no window has the focus, as a window manager does; there is none here.
void GiveKeyboard()
{
    if (QApplication::activeWindow() != nullptr || QApplication::activePopupWidget() != nullptr) {
        return;
    }
    QWidget* pTop = QApplication::activeModalWidget();
    for (QWidget* const pWindow : QApplication::topLevelWidgets()) {
        const bool bDialog = !pWindow->windowFlags().testFlag(Qt::WindowMaximizeButtonHint);
        if (pWindow->isVisible() && (pTop == nullptr || bDialog) &&
            QApplication::activeModalWidget() == nullptr) {
            pTop = pWindow;
        }
    }
    if (pTop != nullptr) {
        pTop->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(pTop));
    }
}

void ClickOn(QWidget* pWidget, Qt::MouseButton button)
{
    QCursor::setPos(pWidget->mapToGlobal(pWidget->rect().center())); // where a context menu opens
    QTest::mouseClick(pWidget, button);
}

} // namespace

Stage::Stage(SampleTree& sampleTree, Launches& programs, std::string sFolder)
    : tree(sampleTree), launches(programs), m_sFolder(std::move(sFolder)), m_text(m_sFolder + "/tour.txt")
{
}

void Stage::DoEvents(std::int64_t /*nSteps*/)
{
    QApplication::processEvents();
}

void Stage::Enter(const char* pScene)
{
    m_sScene = pScene;
}

void Stage::Expect(bool bHolds, std::string_view sFact)
{
    if (!bHolds) {
        std::cerr << "tour: in scene \"" << m_sScene << "\" this does not hold: " << sFact << '\n';
        m_bFailed = true;
    }
}

void Stage::ExpectEqual(const std::string& sGot, const std::string& sWanted, std::string_view sWhat)
{
    Expect(sGot == sWanted, std::string(sWhat) + " is \"" + sWanted + "\", not \"" + sGot + '"');
}

void Stage::WaitFor(const std::function<bool()>& isTrue, std::string_view sFact)
{
    Expect(QTest::qWaitFor(isTrue, 10'000), sFact);
}

void Stage::Click(const platform::Control& control, Qt::MouseButton button)
{
    QWidget* const pWidget = WidgetOf(&control);
    GiveKeyboard();
    Expect(pWidget != nullptr && pWidget->isVisible(), "what is to be clicked can be seen");
    if (pWidget != nullptr) {
        // The rows of a list are in an inner widget.
        QWidget* const pInner = pWidget->childAt(pWidget->rect().center());
        ClickOn(pInner != nullptr ? pInner : pWidget, button);
    }
}

void Stage::Click(QWidget* pWidget)
{
    GiveKeyboard();
    Expect(pWidget != nullptr && pWidget->isVisible(), "what is to be clicked can be seen");
    if (pWidget != nullptr) {
        ClickOn(pWidget, Qt::LeftButton);
    }
}

void Stage::Tool(std::string_view sCaption)
{
    QWidget* pFound = nullptr;
    for (QToolButton* const pButton : WidgetOf(&main.Toolbar1)->findChildren<QToolButton*>()) {
        pFound = pButton->text().toStdString() == sCaption ? pButton : pFound;
    }
    Click(pFound);
}

void Stage::Open(const platform::MenuItem& menu)
{
    GiveKeyboard();
    auto* const pMenu = qobject_cast<QMenu*>(WidgetOf(&menu));
    auto* const pOver = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    auto* const pBar = WidgetOf(&main.form)->findChild<QMenuBar*>();
    if (pOver != nullptr) {
        QTest::mouseClick(pOver, Qt::LeftButton, {}, pOver->actionGeometry(pMenu->menuAction()).center());
    } else {
        QTest::mouseClick(pBar, Qt::LeftButton, {}, pBar->actionGeometry(pMenu->menuAction()).center());
    }
    WaitFor([&] { return pMenu->isVisible(); }, "menu " + menu.sCaption + " opens");
}

void Stage::Choose(const platform::MenuItem& item)
{
    auto* const pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* const pAction : pMenu == nullptr ? QList<QAction*>() : pMenu->actions()) {
        if (pAction->text().toStdString() == item.sCaption) {
            QTest::mouseClick(pMenu, Qt::LeftButton, {}, pMenu->actionGeometry(pAction).center());
            return;
        }
    }
    Expect(false, "item " + item.sCaption + " is in the menu that is open");
}

void Stage::Press(Qt::Key key, Qt::KeyboardModifiers held)
{
    GiveKeyboard();
    QWidget* const pMenu = QApplication::activePopupWidget();
    QWidget* const pFocus = pMenu != nullptr ? pMenu : QApplication::focusWidget();
    Expect(pFocus != nullptr, "somebody has the keyboard");
    if (pFocus != nullptr) {
        QTest::keyClick(pFocus, key, held);
    }
}

void Stage::Type(std::string_view sText)
{
    for (const char c : sText) {
        QTest::keyClick(QApplication::focusWidget(), c);
    }
}

void Stage::Meanwhile(const std::function<void()>& act, const std::function<bool()>& isUp,
                      const std::function<void()>& talk)
{
    bool bCameUp = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (isUp()) {
            look.stop();
            bCameUp = true;
            talk();
        }
    });
    look.start(0); // in each iteration of any event loop
    act();
    Expect(bCameUp, "what was asked for came up");
    GiveKeyboard();
}

void Stage::Meanwhile(const std::function<void()>& act, platform::Form& form,
                      const std::function<void()>& talk)
{
    Meanwhile(act, [&] { return IsUp(form); }, talk);
    Expect(!form.Loaded(), "the window has gone");
    WaitFor([&] { return IsUp(main.form); }, "the main window has the keyboard again");
}

void Stage::MeetMessage(const std::function<void()>& act, std::string_view sText, const char* pPicture)
{
    Meanwhile(
        act, [] { return MessageUp() != nullptr; },
        [&] {
            Expect(MessageUp()->textFormat() == Qt::PlainText, "no name in a message can act on its text");
            ExpectEqual(MessageUp()->text().toStdString(), std::string(sText), "the message");
            if (pPicture != nullptr) {
                Show(pPicture);
            }
            Click(MessageUp()->button(QMessageBox::Ok));
        });
}

void Stage::Search(const std::function<void()>& talk)
{
    const auto isHalfWay = [&] {
        const auto* const pBar =
            platform::FindWindowExA(&progress.form, nullptr, platform::NativeProgressBar::kClass);
        const auto* const pShown = dynamic_cast<const platform::NativeProgressBar*>(pBar);
        return IsUp(progress.form) && pShown != nullptr && pShown->Position() >= 50;
    };
    Meanwhile([&] { Press(Qt::Key_F3); }, isHalfWay, talk ? talk : [] {});
    Expect(!progress.form.Loaded() && main.form.Enabled(), "the search is over");
    WaitFor([&] { return IsUp(main.form); }, "the main window has the keyboard again");
}

void Stage::ExpectGroups(std::vector<std::set<std::string>> wanted, std::string_view sWhat)
{
    // The order of files depends on the file system, and the order of rows with it.
    const std::string sHome = tree.Path("");
    std::vector<std::set<std::string>> groups;
    std::string sMarks;
    for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
        const auto row = main.lvFiles.ListItems(n);
        sMarks += std::to_string(row.SmallIcon());
        if (BeginsGroup(row.SmallIcon()) || groups.empty()) {
            groups.emplace_back();
        }
        groups.back().insert(row.Key().substr(sHome.size()));
    }
    static const QRegularExpression kWhole(QStringLiteral("^([25][36]*[47])*$"));
    Expect(kWhole.match(QString::fromStdString(sMarks)).hasMatch(), "marks join each group: " + sMarks);
    std::sort(groups.begin(), groups.end());
    std::sort(wanted.begin(), wanted.end());
    ExpectEqual(Lines(groups), Lines(wanted), sWhat);
}

bool BeginsGroup(int nMark)
{
    return nMark == platform::kMarkFirst || nMark == platform::kMarkFirst + platform::kMarksGone;
}

std::string Stage::Status()
{
    return main.StatusBar1.Panels(1).Text() + " | " + main.StatusBar1.Panels(2).Text();
}

void Stage::Show(const std::string& sName)
{
    const std::string sNumbered = Number(++m_nPictures) + "-" + sName;
    for (platform::Form* const pForm : {&main.form, &progress.form}) {
        if (pForm->Loaded()) {
            pForm->Refresh();
        }
    }
    Expect(PictureOfScreen().save(QString::fromStdString(m_sFolder + "/" + sNumbered + ".png")),
           "the picture can be written");
    m_text << sNumbered << "\n  " << Status() << '\n';
    for (std::size_t n = 1; n <= main.lvFolders.ListItems.Count(); ++n) {
        m_text << "  folder " << platform::Escaped(main.lvFolders.ListItems(n).Text()) << '\n';
    }
    for (std::size_t n = 1; n <= main.lvFiles.ListItems.Count(); ++n) {
        const auto row = main.lvFiles.ListItems(n);
        m_text << "  " << row.SmallIcon() << (row.Selected() ? "* " : "  ") << platform::Escaped(row.Text());
        for (const std::size_t nColumn : {1U, 2U, 3U}) {
            m_text << "  " << platform::Escaped(row.SubItems(nColumn));
        }
        m_text << '\n';
    }
    m_text << '\n' << std::flush;
    Expect(m_text.good(), "the text can be written");
}

} // namespace tour

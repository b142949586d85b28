#include "Form.h"
#include "ListView.h"
#include "Menu.h"
#include "PacedEventLoop.h"
#include "QtWindows.h"
#include "StatusBar.h"
#include "System.h"
#include "Toolbar.h"
#include "UserInterface.h"
#include "WidgetOf.h"
#include "Widgets.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using desktop::WidgetOf;
using platform::tPlace;

/// A form with each kind of control; what its handlers are told is written down.
struct TestForm {
    platform::Form form;
    platform::StatusBar status{2};
    platform::Toolbar toolbar;
    platform::ListView list{form};
    platform::PictureBox box;
    platform::Label label;
    platform::Image image;
    platform::CommandButton add;
    platform::CommandButton close;
    platform::MenuItem mnuFile, mnuFind, sep, mnuMore, mnuDeep;
    std::string sHeard;

    TestForm()
    {
        form.design = {.sCaption = "Test",
                       .ClientWidth = 6000,
                       .ClientHeight = 4500,
                       .bSizable = true,
                       .bShowInTaskbar = true};
        form.controls = {&status, &toolbar, &list, &box, &label, &image, &add, &close};
        form.menus = {&mnuFile};
        form.DefaultButton = &add;
        form.CancelButton = &close;
        form.Resize = [this] { Hear("resize"); };
        status.SetPlace({0, 4170, 6000, 330});
        status.Panels(1).bSpring = true;
        status.Panels(2).sToolTip = " Found ";
        toolbar.SetPlace({0, 0, 6000, 720});
        toolbar.buttons = {{"new", "New", "New", "new"}, {}, {"save", "Save", "Save Results", "save"}};
        toolbar.ButtonClick = [this](const std::string& sKey) { Hear("tool " + sKey); };
        list.SetPlace({0, 735, 3000, 1500});
        box.SetPlace({0, 2400, 3000, 300});
        const auto hear = [this](const char* pEvent) {
            return [this, pEvent](int Button, int Shift, float X, float Y) {
                Hear(std::string(pEvent) + " " + std::to_string(Button) + " " + std::to_string(Shift) + " " +
                     std::to_string(static_cast<int>(X)) + " " + std::to_string(static_cast<int>(Y)));
            };
        };
        box.MouseDown = hear("down");
        box.MouseMove = hear("move");
        box.MouseUp = hear("up");
        label.SetPlace({3150, 735, 1500, 225});
        label.SetCaption("&Text");
        image.SetPlace({3150, 1200, 480, 480});
        image.SetPicture("tallyfen");
        add.SetPlace({3150, 3000, 1140, 330});
        add.SetCaption("Add");
        add.Click = [this] { Hear("add"); };
        close.SetPlace({4500, 3000, 1140, 330});
        close.SetCaption("Close");
        close.Click = [this] { Hear("close"); };
        mnuFile.sCaption = "&File";
        mnuFile.items = {&mnuFind, &sep, &mnuMore};
        mnuFind.sCaption = "Find";
        mnuFind.sShortcut = "F3";
        mnuFind.Click = [this] { Hear("find"); };
        sep.sCaption = "-";
        mnuMore.sCaption = "More";
        mnuMore.items = {&mnuDeep};
        mnuDeep.sCaption = "Deep";
        mnuDeep.sShortcut = "F4";
        mnuDeep.Click = [this] { Hear("deep"); };
    }

    void Hear(const std::string& sWhat) { sHeard += (sHeard.empty() ? "" : ", ") + sWhat; }

    /// What has been heard since the last call.
    std::string Heard() { return std::exchange(sHeard, {}); }

    [[nodiscard]] QWidget* Window() const { return WidgetOf(&form); }

    template <typename T>
    [[nodiscard]] T* Shown(const platform::Control& control) const
    {
        return dynamic_cast<T*>(WidgetOf(&control));
    }

    [[nodiscard]] QToolButton* Tool(const QString& sCaption) const
    {
        for (auto* pButton : WidgetOf(&toolbar)->findChildren<QToolButton*>()) {
            if (pButton->text() == sCaption) {
                return pButton;
            }
        }
        return nullptr;
    }
};

class FormWindow : public ::testing::Test
{
protected:
    FormWindow()
    {
        desktop::PutOnFace();
        platform::tSystem system;
        system.events = &m_events;
        system.screen = &m_windows;
        system.messages = &m_windows;
        system.windows = &m_windows;
        platform::UseSystem(system);
    }
    ~FormWindow() override
    {
        one.form.UnloadForm();
        two.form.UnloadForm();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void Show()
    {
        one.form.Show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(one.Window()));
        one.Heard();
    }

private:
    desktop::QtWindows m_windows;
    desktop::PacedEventLoop m_events{[] { QApplication::processEvents(); }};

protected:
    TestForm one;
    TestForm two;
};

TEST_F(FormWindow, WidgetsFollowTheControls)
{
    Show();
    // What a label says waits for its turn, so that saying it costs nothing.
    auto* const pLabel = one.Shown<QLabel>(one.label);
    EXPECT_EQ(pLabel->text(), "&Text");
    one.label.SetCaption("a\nb\r\nc\xFF");
    EXPECT_EQ(pLabel->text(), "&Text");
    one.form.Refresh();
    EXPECT_EQ(pLabel->text(), "a\\x0Ab\nc\\xFF");
    one.label.SetCaption("later");
    EXPECT_TRUE(QTest::qWaitFor([&] { return pLabel->text() == "later"; }));

    one.list.SetLeft(150);
    EXPECT_FALSE(one.list.SetHeight(-15));
    EXPECT_EQ(WidgetOf(&one.list)->geometry(), QRect(10, 49, 200, 100));
    one.list.SetVisible(false);
    one.add.SetEnabled(false);
    EXPECT_FALSE(WidgetOf(&one.list)->isVisible() || WidgetOf(&one.add)->isEnabled());
    EXPECT_EQ(WidgetOf(&one.status.Panels(2))->toolTip(), " Found ");
    EXPECT_FALSE(one.Tool("Save")->icon().pixmap(24, 24).isNull());
    platform::LockWindowUpdate(one.list.hWnd());
    EXPECT_FALSE(WidgetOf(&one.list)->updatesEnabled());
    platform::LockWindowUpdate(nullptr);
    EXPECT_TRUE(WidgetOf(&one.list)->updatesEnabled());
}

TEST_F(FormWindow, InputReachesTheHandlers)
{
    Show();
    QWidget* const pBox = WidgetOf(&one.box);
    QTest::mouseClick(WidgetOf(&one.add), Qt::LeftButton);
    QTest::mouseClick(one.Tool("Save"), Qt::LeftButton);
    EXPECT_EQ(one.Heard(), "add, tool save");
    QTest::mousePress(pBox, Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier, {2, 3});
    QTest::mouseRelease(pBox, Qt::LeftButton, {}, {-2, 40});
    QTest::mouseClick(pBox, Qt::RightButton, Qt::AltModifier, {1, 1});
    EXPECT_EQ(one.Heard(), "down 1 3 30 45, up 1 0 -30 600, down 2 4 15 15, up 2 4 15 15");
    QMouseEvent drag(QEvent::MouseMove, QPointF(4, 5), QPointF(4, 5), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(pBox, &drag);
    EXPECT_EQ(one.Heard(), "move 1 0 60 75");
}

TEST_F(FormWindow, MenusSayAndDoWhatTheItemsSay)
{
    Show();
    auto* const pMenu = one.Shown<QMenu>(one.mnuFile);
    QAction* const pFind = pMenu->actions().at(0);
    EXPECT_TRUE(pMenu->actions().at(1)->isSeparator());
    for (const bool bChecked : {true, false}) {
        one.mnuFind.SetChecked(bChecked);
        pFind->trigger();
        EXPECT_EQ(pFind->isChecked(), bChecked) << "an item checks itself never";
        EXPECT_EQ(one.Heard(), "find");
    }
    const auto press = [&] {
        QTest::keyClick(one.Window(), Qt::Key_F3);
        QTest::keyClick(one.Window(), Qt::Key_F4);
        return one.Heard();
    };
    EXPECT_EQ(press(), "find, deep");
    one.mnuFind.SetEnabled(false);
    EXPECT_EQ(press(), "deep");
    one.mnuMore.SetEnabled(false); // its items with it
    EXPECT_EQ(press(), "");
    one.mnuFind.SetEnabled(true);
}

TEST_F(FormWindow, ADisabledFormTakesNoInputButTheOneItOwnsDoes)
{
    Show();
    two.form.Show(false, &one.form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(two.Window()));
    one.form.SetEnabled(false);
    two.Heard();

    one.Window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(one.Window()));
    QTest::mouseClick(one.Window()->windowHandle(), Qt::LeftButton, {},
                      WidgetOf(&one.close)->mapTo(one.Window(), QPoint(5, 5)));
    EXPECT_TRUE(WidgetOf(&one.list)->hasFocus()) << "a click that does not count moves no focus";
    QTest::mouseClick(WidgetOf(&one.add), Qt::LeftButton);
    QTest::mouseClick(one.Tool("New"), Qt::LeftButton);
    QTest::keyClick(WidgetOf(&one.list), Qt::Key_Return);
    QTest::keyClick(one.Window(), Qt::Key_F3);
    one.Shown<QMenu>(one.mnuFile)->actions().at(0)->trigger(); // as assistive tools do
    one.Shown<QPushButton>(one.add)->click();
    one.Window()->close();
    EXPECT_EQ(one.Heard(), "");
    EXPECT_TRUE(one.form.Loaded());
    EXPECT_FALSE(one.form.SetFocus(one.add));

    two.Window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(two.Window()));
    QTest::mouseClick(WidgetOf(&two.add), Qt::LeftButton);
    EXPECT_EQ(two.Heard(), "add");
    one.form.SetEnabled(true);
    QTest::mouseClick(WidgetOf(&one.add), Qt::LeftButton);
    EXPECT_EQ(one.Heard(), "add");
    one.Window()->close();
    EXPECT_FALSE(one.form.Loaded());
    EXPECT_TRUE(two.Window()->isVisible()) << "an owner takes nobody along";
}

TEST_F(FormWindow, EnterAndEscPressTheirButtons)
{
    Show();
    const struct {
        platform::Control& focus;
        int nKey;
        Qt::KeyboardModifiers held;
        const char* pHeard;
    } cases[] = {
        {one.list, Qt::Key_Return, Qt::NoModifier, "add"},
        {one.list, Qt::Key_Enter, Qt::KeypadModifier, "add"},
        {one.list, Qt::Key_Return, Qt::ControlModifier, ""},
        {one.list, Qt::Key_Escape, Qt::NoModifier, "close"},
        {one.close, Qt::Key_Return, Qt::NoModifier, "close"}, // a button with the focus comes first
        {one.close, Qt::Key_Space, Qt::NoModifier, "close"},
    };
    for (const auto& each : cases) {
        ASSERT_TRUE(one.form.SetFocus(each.focus));
        EXPECT_TRUE(WidgetOf(&each.focus)->hasFocus());
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(each.nKey), each.held);
        EXPECT_EQ(one.Heard(), each.pHeard) << each.nKey;
    }
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(WidgetOf(&one.list), &held);
    one.close.SetEnabled(false);
    QTest::keyClick(WidgetOf(&one.list), Qt::Key_Escape);
    EXPECT_EQ(one.Heard(), "");
}

TEST_F(FormWindow, TellsItsSizeAndKeepsBarsAtTheirEdges)
{
    std::vector<std::string> told;
    one.form.Resize = [&] {
        const auto whole = [](float twips) { return std::to_string(static_cast<int>(twips)); };
        told.push_back(whole(one.form.ScaleWidth()) + "x" + whole(one.form.ScaleHeight()) + " " +
                       std::to_string(static_cast<int>(one.form.WindowState())) + " " +
                       whole(one.status.Top()) + " " + whole(one.status.Width()) + " " +
                       whole(one.status.Height()) + " " + whole(one.toolbar.Height()));
    };
    one.form.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(one.Window()));
    EXPECT_EQ(told, std::vector<std::string>{"6000x4500 0 4170 6000 330 720"});
    one.Window()->resize(one.Window()->size() + QSize(10, 20));
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }));
    EXPECT_EQ(told.back(), "6150x4800 0 4470 6150 330 720");
    EXPECT_EQ(WidgetOf(&one.status)->geometry(), QRect(0, 298, 410, 22));
    one.Window()->showMinimized();
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() == 3; }));
    EXPECT_EQ(told.back(), "6150x4800 1 4470 6150 330 720");
    one.Window()->showNormal();
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() == 4; }));
    EXPECT_EQ(told.back(), "6150x4800 0 4470 6150 330 720");
}

TEST_F(FormWindow, TextsGetTheRoomTheyNeed)
{
    Show();
    one.add.SetCaption("A caption that is wider than its button");
    one.close.SetCaption("A caption that would reach over the form's edge");
    one.label.SetCaption("A text of several lines, which needs more height than the label has");
    one.form.Refresh();
    for (const platform::Control* pButton : {&one.add, &one.close}) {
        const auto* const pWidget = one.Shown<QPushButton>(*pButton);
        EXPECT_GT(pWidget->width(), pWidget->fontMetrics().horizontalAdvance(pWidget->text()));
        EXPECT_LE(pWidget->geometry().right(), pWidget->parentWidget()->width());
    }
    const QRect label = WidgetOf(&one.label)->geometry();
    EXPECT_GT(label.height(), 15);
    EXPECT_LE(label.bottom(), WidgetOf(&one.image)->y()) << "not over its neighbour";
}

} // namespace

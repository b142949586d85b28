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
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
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
    one.list.SetHeight(300);
    EXPECT_FALSE(one.list.SetHeight(-15));
    EXPECT_EQ(WidgetOf(&one.list)->geometry(), QRect(10, 49, 200, 20));
    one.list.SetVisible(false);
    EXPECT_FALSE(WidgetOf(&one.list)->isVisible());
    one.add.SetEnabled(false);
    one.add.SetCaption("Add More");
    EXPECT_FALSE(WidgetOf(&one.add)->isEnabled());
    EXPECT_EQ(one.Shown<QPushButton>(one.add)->text(), "Add More");
    one.status.Panels(1).SetText("Ready");
    EXPECT_EQ(one.Shown<QLabel>(one.status.Panels(1))->text(), "Ready");
    EXPECT_EQ(WidgetOf(&one.status.Panels(2))->toolTip(), " Found ");
    EXPECT_FALSE(one.Tool("New")->autoRaise());
    platform::SendMessageA(one.toolbar.native.hWnd(), platform::Toolbar::NativeWindow::TB_SETSTYLE, 0,
                           platform::Toolbar::NativeWindow::TBSTYLE_FLAT);
    EXPECT_TRUE(one.Tool("New")->autoRaise());
    EXPECT_FALSE(one.Tool("Save")->icon().pixmap(24, 24).isNull());
    one.box.SetBackColor(platform::SystemColor::ButtonShadow);
    one.box.SetSizesNorthSouth(true);
    EXPECT_EQ(WidgetOf(&one.box)->backgroundRole(), QPalette::Dark);
    EXPECT_EQ(WidgetOf(&one.box)->cursor().shape(), Qt::SplitVCursor);
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

    QTimer::singleShot(0, pMenu, [&] {
        ASSERT_TRUE(pMenu->isVisible());
        QTest::keyClick(pMenu, Qt::Key_Down);
        QTest::keyClick(pMenu, Qt::Key_Return);
    });
    platform::Windows().PopupMenu(one.mnuFile, nullptr);
    EXPECT_EQ(one.Heard(), "find");
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

TEST_F(FormWindow, WithoutAControlBoxNothingCloses)
{
    one.form.design.bSizable = one.form.design.bControlBox = false;
    one.form.CancelButton = nullptr;
    Show();
    EXPECT_FALSE(one.Window()->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QTest::keyClick(WidgetOf(&one.list), Qt::Key_Escape);
    one.Window()->close();
    EXPECT_TRUE(one.Window()->isVisible());
    EXPECT_EQ(one.Heard(), "");
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

TEST_F(FormWindow, TheFocusGoesRoundInTabOrder)
{
    Show();
    QPushButton guest(WidgetOf(&one.box));
    guest.show();
    std::vector<const platform::Control*> seen;
    for (int n = 0; n < 5; ++n) {
        seen.push_back(one.form.ActiveControl());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(seen,
              (std::vector<const platform::Control*>{&one.list, &one.box, &one.add, &one.close, &one.list}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(one.form.ActiveControl(), &one.list);
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

TEST_F(FormWindow, ChildrenComeAndGo)
{
    Show();
    const auto hBar =
        platform::CreateWindowExA(platform::ProgressWindow::kClass, 10, 200, 100, 15, &one.form);
    platform::SendMessageA(hBar, platform::ProgressWindow::PBM_SETPOS, 40, 0);
    auto* const pBar = dynamic_cast<QProgressBar*>(WidgetOf(hBar));
    ASSERT_TRUE(pBar != nullptr && pBar->isVisible());
    EXPECT_EQ(pBar->value(), 40);
    EXPECT_EQ(pBar->geometry(), QRect(10, 200, 100, 15));
    platform::MoveWindow(hBar, 20, 200, 50, 15);
    EXPECT_EQ(pBar->geometry(), QRect(20, 200, 50, 15));
    platform::DestroyWindow(hBar);
    EXPECT_EQ(WidgetOf(hBar), nullptr);
    EXPECT_FALSE(pBar->isVisible());
}

TEST_F(FormWindow, AModalFormReturnsWhenItHasGone)
{
    Show();
    two.close.Click = [&] { two.form.UnloadForm(); }; // from inside its own event
    two.add.Click = [&] {
        TestForm inner;
        QTimer::singleShot(0, qApp, [&] { inner.form.UnloadForm(); });
        inner.form.Show(true);
        one.Hear("inner gone");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    for (int nRound = 0; nRound < 2; ++nRound) {
        QTimer::singleShot(0, qApp, [&] {
            EXPECT_EQ(two.Window()->windowModality(), Qt::ApplicationModal);
            QTest::mouseClick(WidgetOf(&two.add), Qt::LeftButton);
            one.Hear("still there");
            QTest::mouseClick(WidgetOf(&two.close), Qt::LeftButton);
            EXPECT_EQ(two.Window(), nullptr);
            EXPECT_EQ(WidgetOf(&two.add), nullptr);
        });
        two.form.Show(true);
        EXPECT_EQ(one.Heard(), "inner gone, still there");
    }
}

TEST_F(FormWindow, TheLastFormEndsTheProgram)
{
    Show();
    two.form.Show(false, &one.form);
    QTimer::singleShot(0, qApp, [&] { two.form.UnloadForm(); });
    QTimer::singleShot(20, qApp, [&] {
        one.Hear("still running");
        QTest::mouseClick(one.Window(), Qt::LeftButton);
        one.form.UnloadForm();
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(one.Heard(), "still running");
}

TEST_F(FormWindow, AMessageWaitsForItsButton)
{
    Show();
    QTimer wait;
    QObject::connect(&wait, &QTimer::timeout, &wait, [&] {
        auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (pBox != nullptr && pBox->isActiveWindow()) {
            wait.stop();
            EXPECT_EQ(pBox->text(), "<b>No.</b>");
            EXPECT_EQ(pBox->textFormat(), Qt::PlainText);
            EXPECT_EQ(pBox->windowTitle(), "Tallyfen");
            EXPECT_EQ(pBox->icon(), QMessageBox::Warning);
            one.Hear("asked");
            QTest::mouseClick(pBox->button(QMessageBox::Ok), Qt::LeftButton);
        }
    });
    wait.start(1);
    platform::Messages().Show("<b>No.</b>", platform::MessageIcon::Exclamation);
    EXPECT_EQ(one.Heard(), "asked");
}

} // namespace

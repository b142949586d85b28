// SPDX-License-Identifier: MIT
// Forms as windows: what their widgets show and take.

#include "Form.h"
#include "ListView.h"
#include "Menu.h"
#include "OnScreen.h"
#include "Toolbar.h"
#include "Twips.h"
#include "WidgetOf.h"
#include "Widgets.h"

#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QWindow>
#include <cmath>

namespace {

using desktop::WidgetOf;
using support::OnScreen;

/// A form with the kinds of control that take input; what its handlers are told is written down.
struct TestForm {
    platform::Form form;
    platform::Toolbar toolbar;
    platform::ListView list{form};
    platform::Label label;
    platform::CommandButton add, close;
    platform::PictureBox bar;
    platform::MenuItem mnuFile, mnuFind;
    std::string sHeard;

    TestForm()
    {
        form.design.ClientWidth = 6000;
        form.design.ClientHeight = 4500;
        form.design.bSizable = true;
        form.controls = {&toolbar, &list, &label, &add, &close, &bar};
        form.menus = {&mnuFile};
        form.DefaultButton = &add;
        toolbar.SetPlace({0, 0, 6000, 720});
        toolbar.buttons = {{"new", "New", "New", "new"}};
        toolbar.ButtonClick = [this](const std::string& sKey) { sHeard += sKey + " "; };
        list.SetPlace({0, 735, 3000, 1500});
        list.AddColumn("Name", platform::Alignment::Left, 2000);
        list.MultiSelect = true;
        label.SetPlace({3150, 735, 1500, 225});
        add.SetPlace({3150, 1200, 1140, 330});
        add.Click = [this] { sHeard += "add "; };
        close.SetPlace({4500, 3000, 1140, 330});
        bar.SetPlace({0, 2235, 3000, 30});
        bar.SetSizesNorthSouth(true);
        const auto note = [this](const char* pWhat) {
            return [this, pWhat](int nButton, int, float, float y) {
                sHeard += pWhat + std::to_string(nButton) + "@" + std::to_string(std::lround(y)) + " ";
            };
        };
        bar.MouseDown = note("down");
        bar.MouseUp = note("up");
        mnuFile.items = {&mnuFind};
        mnuFind.sShortcut = "F3";
        mnuFind.Click = [this] { sHeard += "find "; };
    }

    std::string Heard() { return std::exchange(sHeard, {}); }

    [[nodiscard]] QWidget* Window() const { return WidgetOf(&form); }
    [[nodiscard]] QToolButton* Tool() const
    {
        return WidgetOf(&toolbar)->findChildren<QToolButton*>().back();
    }
    [[nodiscard]] QAction* Find() const { return WidgetOf(&mnuFile)->actions().front(); }
};

class FormWindow : public OnScreen
{
protected:
    FormWindow() { Show(one.form); }

    TestForm one, two;
};

TEST_F(FormWindow, WidgetsShowWhatTheControlsSay)
{
    auto* const pLabel = qobject_cast<QLabel*>(WidgetOf(&one.label));
    one.label.SetCaption("&a\nb\r\nc\xFF");
    EXPECT_TRUE(QTest::qWaitFor([&] { return pLabel->text() == "&a\\x0Ab\nc\\xFF"; })) << "a moment later";
    one.add.SetEnabled(false);
    EXPECT_FALSE(WidgetOf(&one.add)->isEnabled());
    EXPECT_FALSE(one.Tool()->icon().pixmap(24, 24).isNull());
    // A button gets the room that its text needs.
    one.add.SetCaption("A caption that is wider than its button");
    const auto* const pButton = qobject_cast<QPushButton*>(WidgetOf(&one.add));
    EXPECT_GT(pButton->width(), pButton->fontMetrics().horizontalAdvance(pButton->text()));
}

TEST_F(FormWindow, MenusDoWhatTheItemsSay)
{
    for (const bool bSet : {true, false}) {
        one.mnuFind.SetEnabled(bSet);
        one.mnuFind.SetChecked(bSet);
        QTest::keyClick(one.Window(), Qt::Key_F3);
        EXPECT_EQ(one.Find()->isChecked(), bSet) << "an item checks itself never";
        EXPECT_EQ(one.Heard(), bSet ? "find " : "");
    }
}

TEST_F(FormWindow, ADisabledFormTakesNoInputButTheOneItOwnsDoes)
{
    Show(two.form, &one.form);
    one.form.SetEnabled(false);
    QTest::mouseClick(WidgetOf(&one.add), Qt::LeftButton);
    QTest::keyClick(WidgetOf(&one.list), Qt::Key_Return);
    QTest::keyClick(one.Window(), Qt::Key_F3);
    one.Find()->trigger(); // as assistive tools do
    one.Tool()->click();
    qobject_cast<QPushButton*>(WidgetOf(&one.add))->click();
    one.Window()->close();
    EXPECT_EQ(one.Heard(), "");
    EXPECT_TRUE(one.form.Loaded());
    QTest::mouseClick(WidgetOf(&two.add), Qt::LeftButton);
    EXPECT_EQ(two.Heard(), "add ");
    one.form.SetEnabled(true);
    QTest::mouseClick(WidgetOf(&one.add), Qt::LeftButton);
    one.Tool()->click();
    EXPECT_EQ(one.Heard(), "add new ");
    one.Window()->close();
    EXPECT_FALSE(one.form.Loaded());
    EXPECT_TRUE(two.Window()->isVisible()) << "an owner takes nobody along";
}

TEST_F(FormWindow, AWindowKeepsToTheScreenWithItsFrame)
{
    two.form.design.bCenterOnScreen = true;
    two.form.design.ClientHeight = 60000;
    Show(two.form);
    const QRect room = two.Window()->screen()->availableGeometry();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QRect whole = two.Window()->frameGeometry();
        return room.contains(whole) && std::abs(whole.center().x() - room.center().x()) <= 1;
    }));
    EXPECT_GT(two.Window()->windowHandle()->frameMargins().top(), 0) << "else this says nothing";
}

TEST_F(FormWindow, GrowsWithTheTextOfTheDesktop)
{
    for (const double factor : {1.0, 1.5}) {
        desktop::UseTextScale(factor);
        TestForm form;
        form.form.Show(false, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(WidgetOf(&form.form)));
        const QWidget* const pButton = WidgetOf(&form.close);
        EXPECT_EQ(pButton->geometry().topLeft(), (QPointF(300, 200) * factor).toPoint());
        EXPECT_NEAR(QFontMetricsF(pButton->font()).height(), 13 * factor, 2);
        EXPECT_NEAR(form.form.ScaleWidth(), 6000, 8) << "in twips nothing changes";
        EXPECT_NEAR(form.list.Width(), 3000, 8);
        form.form.UnloadForm();
    }
    desktop::UseTextScale(1);
}

/// A form is disabled, or a modal window takes its input, while the mouse button is held.
TEST_F(FormWindow, WhoLosesTheInputLetsGoOfWhatTheMouseHolds)
{
    for (int n = 0; n < 200; ++n) {
        one.list.ListItems.Add(std::to_string(n), std::to_string(n), 1);
    }
    auto* const pRows = qobject_cast<QTreeView*>(WidgetOf(&one.list));
    QDialog modal(one.Window());
    modal.setModal(true);
    for (const bool bModal : {false, true}) {
        const auto take = [&] { bModal ? modal.show() : one.form.SetEnabled(false); };
        const auto giveBack = [&] { bModal ? modal.hide() : one.form.SetEnabled(true); };
        QTest::mousePress(WidgetOf(&one.bar), Qt::LeftButton, {}, {50, 5}); // beside what shows of it
        take();
        giveBack();
        QTest::mousePress(WidgetOf(&one.add), Qt::LeftButton);
        take();
        giveBack();
        EXPECT_EQ(one.Heard(), "down1@45 up1@-45 ") << "a button let go of is not pressed";

        QTest::mousePress(pRows->viewport(), Qt::LeftButton, {}, {20, 20});
        QTest::mouseMove(pRows->viewport(), {20, 500});
        const auto picked = one.list.ListItems.Selection();
        EXPECT_GT(one.list.ListItems.SelectedCount(), 1U);
        take();
        QTest::qWait(100); // a drag that went on would have scrolled by then
        EXPECT_EQ(one.list.ListItems.Selection(), picked);
        giveBack();
        QTest::mouseMove(pRows->viewport(), {20, 40});
        EXPECT_EQ(one.list.ListItems.Selection(), picked);
        pRows->verticalScrollBar()->setValue(0);
    }
}

} // namespace

#include "ShownList.h"

#include <QApplication>
#include <QHeaderView>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using tShown = support::tShownList;

TEST(ListViewWidget, TellsOfKeysAndOfTheMouse)
{
    tShown shown(3);
    std::string sHeard;
    shown.list.KeyUp = [&](int nKeyCode, int nShift) {
        sHeard += std::to_string(nKeyCode) + "/" + std::to_string(nShift) + " ";
    };
    const auto tellMouse = [&](const char* pKind) {
        return [&sHeard, &shown, pKind](int nButton, int nShift, float x, float y) {
            const auto item = shown.list.HitTest(x, y);
            sHeard += pKind + std::to_string(nButton) + "/" + std::to_string(nShift) + "@" +
                      (item ? std::to_string(item->Index()) : "-") + " ";
        };
    };
    shown.list.MouseDown = tellMouse("down");
    shown.list.MouseUp = tellMouse("up");
    shown.list.DblClick = [&] { sHeard += "double "; };
    shown.list.ColumnClick = [&] { sHeard += "column "; };

    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers held;
        const char* pHeard;
    } cases[] = {
        {Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier, "46/5 "},
        {Qt::Key_A, Qt::ControlModifier, "65/2 "},
        {Qt::Key_A, Qt::NoModifier, "65/0 "},
        {Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier, "65/3 "},
        {Qt::Key_Control, Qt::ControlModifier, "17/0 "},
        {Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier, "16/2 "},
        {Qt::Key_F5, Qt::NoModifier, "116/0 "},
    };
    for (const auto& each : cases) {
        sHeard.clear();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            EXPECT_EQ(sHeard, "") << "keys act when they come up";
            QKeyEvent event(type, each.key, each.held);
            QApplication::sendEvent(shown.pView.get(), &event);
        }
        EXPECT_EQ(sHeard, each.pHeard);
        EXPECT_EQ(shown.list.ListItems.Count(), 3U);
        EXPECT_LE(shown.Selected().size(), 1U) << "the toolkit selects nothing by itself";
    }
    sHeard.clear();
    shown.Click(1, Qt::ControlModifier);
    QTest::mouseDClick(shown.pView->viewport(), Qt::LeftButton, {}, shown.At(1));
    QTest::mouseRelease(shown.pView->viewport(), Qt::LeftButton, {}, shown.At(1));
    QTest::mouseClick(shown.pView->viewport(), Qt::RightButton, {}, {350, 300});
    EXPECT_EQ(sHeard, "down1/2@2 up1/2@2 double up1/0@2 down2/0@- up2/0@- ");
    sHeard.clear();
    QTest::mouseClick(shown.pView->header()->viewport(), Qt::LeftButton, {}, {50, 5});
    EXPECT_EQ(sHeard, "column ");
    EXPECT_EQ(shown.pView->model()->index(0, 0).data().toString(), "file 0");
    shown.list.ListItems(3).SetSmallIcon(7);
    EXPECT_EQ(shown.pView->model()->index(2, 0).data(Qt::AccessibleTextRole).toString(),
              "file 2, last of group, gone");
}

TEST(ListViewWidget, KeepsColumnWidthsInStep)
{
    tShown shown(1);
    QHeaderView& header = *shown.pView->header();
    EXPECT_EQ(header.sectionSize(0), 200);
    header.resizeSection(0, 123); // as a drag of the user's does
    EXPECT_FLOAT_EQ(shown.list.ColumnHeaders(1).Width(), 1845);
    for (const float twips : {5000.F, 40.F, 0.F, 7.F}) {
        shown.list.ColumnHeaders(2).SetWidth(twips);
        EXPECT_EQ(header.sectionSize(1), static_cast<int>(std::lround(twips / 15)));
        EXPECT_FLOAT_EQ(shown.list.ColumnHeaders(2).Width(), twips) << "the program's own width stays exact";
    }
    EXPECT_FALSE(shown.list.ColumnHeaders(2).SetWidth(-1));
}

TEST(ListViewWidget, FindsWhatIsTyped)
{
    const int nUsual = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(3'600'000);
    tShown shown(0);
    for (const char* pName : {"alpha", "Beta", "bravo", "\xC3\x84pfel", "\\x41", "new\nline", "BETA 2"}) {
        shown.list.ListItems.Add(pName, pName, 3);
    }
    const struct {
        const char* pTyped;
        int nRow;
    } steps[] = {
        {"b", 1},       {"B", 2},       {"b", 6},
        {"b", 1}, // one letter leads from row to row, and round
        {"bet", 6},     {"beta", 1},    {"beta ", 6},
        {"z", 6},                                         // from the next row on
        {"\u00e4P", 3}, {"\\x5Cx4", 4}, {"new\\x0aL", 5}, // names are found as they are shown
    };
    for (const auto& step : steps) {
        for (const QChar c : QString::fromUtf8(step.pTyped)) {
            shown.pView->keyboardSearch(c);
        }
        EXPECT_EQ(shown.Current(), step.nRow) << step.pTyped;
        EXPECT_EQ(shown.Selected(), std::set<int>{step.nRow}) << step.pTyped;
        shown.pView->keyboardSearch({}); // as after a pause
    }
    QApplication::setKeyboardInputInterval(nUsual);
}

} // namespace

#include "ShownList.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace {

using tShown = support::tShownList;

/// What a list of rows is expected to do, said as plainly as possible.
struct tExpected {
    std::set<int> selected;
    int nCurrent = 0;
    int nAnchor = 0;

    void AddRange(int nFrom, int nTo)
    {
        for (int n = std::min(nFrom, nTo); n <= std::max(nFrom, nTo); ++n) {
            selected.insert(n);
        }
    }
    void Pick(int nRow, Qt::KeyboardModifiers held)
    {
        nCurrent = nRow;
        if (!held.testFlag(Qt::ControlModifier)) {
            selected.clear();
        }
        if (held.testFlag(Qt::ShiftModifier)) {
            AddRange(nAnchor, nRow);
            return;
        }
        nAnchor = nRow;
        if (selected.erase(nRow) == 0) {
            selected.insert(nRow);
        }
    }
};

const Qt::KeyboardModifiers kHeld[] = {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier,
                                       Qt::ControlModifier | Qt::ShiftModifier};

TEST(ListViewPicking, SelectsAsListsDo)
{
    constexpr int kRows = 200;
    tShown shown(kRows);
    EXPECT_EQ(shown.Current(), 0);
    EXPECT_TRUE(shown.Selected().empty()) << "the first row is current, not selected";
    shown.Click(0);
    tExpected expected{{0}};

    const Qt::Key kMoves[] = {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                              Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    std::mt19937 random(7); // NOLINT: the same course each time
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int nStep = 0; nStep < 2000; ++nStep) {
        const int nRow = below(kRows);
        const auto held = kHeld[below(4)];
        const int nAction = below(9);
        switch (nAction) {
        case 0:
        case 1:
            shown.Click(nRow, held);
            expected.Pick(nRow, held);
            break;
        case 2:
        case 3: {
            const auto key = kMoves[below(6)];
            QTest::keyClick(shown.pView.get(), key, held);
            // How far a page goes is the view's own; which way it goes is not.
            const int nGone = shown.Current() - expected.nCurrent;
            const int nWanted = key == Qt::Key_Up     ? std::max(-1, -expected.nCurrent)
                                : key == Qt::Key_Down ? std::min(1, kRows - 1 - expected.nCurrent)
                                : key == Qt::Key_Home ? -expected.nCurrent
                                : key == Qt::Key_End  ? kRows - 1 - expected.nCurrent
                                                      : nGone;
            EXPECT_EQ(nGone, nWanted);
            EXPECT_TRUE(key != Qt::Key_PageUp || nGone < 0 || expected.nCurrent == 0);
            EXPECT_TRUE(key != Qt::Key_PageDown || nGone > 0 || expected.nCurrent == kRows - 1);
            if (held == Qt::ControlModifier) {
                expected.nCurrent = shown.Current();
            } else {
                expected.Pick(shown.Current(), held);
            }
            break;
        }
        case 4:
            QTest::keyClick(shown.pView.get(), Qt::Key_Space, held);
            if (held != Qt::NoModifier) {
                expected.Pick(expected.nCurrent, held);
            } else if (!expected.selected.contains(expected.nCurrent)) {
                expected.Pick(expected.nCurrent, Qt::ControlModifier);
            }
            break;
        case 5:
            shown.Click(nRow, held, Qt::RightButton);
            if (held == Qt::NoModifier && !expected.selected.contains(nRow)) {
                expected.Pick(nRow, held);
            }
            expected.nCurrent = nRow;
            break;
        case 6: {
            const bool bTakes = held == Qt::ControlModifier && expected.selected.contains(nRow);
            const int nTo = std::clamp(nRow + below(30) - 15, 0, kRows - 1);
            shown.Drag(nRow, nTo, held);
            const int nFrom = held.testFlag(Qt::ShiftModifier) ? expected.nAnchor : nRow;
            const auto before = expected.selected;
            expected.Pick(nRow, held);
            expected.selected = held.testFlag(Qt::ControlModifier) ? before : std::set<int>();
            for (int n = std::min(nFrom, nTo); n <= std::max(nFrom, nTo); ++n) {
                bTakes ? static_cast<void>(expected.selected.erase(n))
                       : static_cast<void>(expected.selected.insert(n));
            }
            expected.nCurrent = nTo;
            break;
        }
        case 7: // the program selects, too
            shown.list.ListItems(static_cast<std::size_t>(nRow) + 1).SetSelected(nStep % 2 == 0);
            expected.selected.erase(nRow);
            if (nStep % 2 == 0) {
                expected.selected.insert(nRow);
            }
            break;
        default: // and those who read the screen do
            shown.pView->selectionModel()->select(QItemSelection(shown.pView->model()->index(nRow / 2, 0),
                                                                 shown.pView->model()->index(nRow, 1)),
                                                  QItemSelectionModel::Toggle);
            for (int n = nRow / 2; n <= nRow; ++n) {
                if (expected.selected.erase(n) == 0) {
                    expected.selected.insert(n);
                }
            }
        }
        shown.Settle();
        ASSERT_EQ(shown.Selected(), expected.selected) << "step " << nStep << ", action " << nAction;
        ASSERT_EQ(shown.Current(), expected.nCurrent) << "step " << nStep << ", action " << nAction;
        ASSERT_EQ(shown.pView->currentIndex().row(), expected.nCurrent);
        const int nTop = shown.pView->indexAt({5, 0}).row();
        for (int n = nTop; n < std::min(kRows, nTop + 15); ++n) {
            ASSERT_EQ(shown.pView->selectionModel()->isSelected(shown.pView->model()->index(n, 1)),
                      expected.selected.contains(n))
                << "what is seen of row " << n << ", step " << nStep;
        }
    }
}

TEST(ListViewPicking, EmptySpaceClearsAndStartsADrag)
{
    tShown shown(5);
    const QPoint below(60, shown.RowRect(4).bottom() + 60);
    const QPoint beside(350, shown.RowRect(2).center().y());
    for (const QPoint& pos : {below, beside}) {
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            shown.Click(1);
            QTest::mouseClick(shown.pView->viewport(), button, Qt::ControlModifier, pos);
            EXPECT_EQ(shown.Selected(), std::set<int>{1});
            QTest::mouseClick(shown.pView->viewport(), button, {}, pos);
            EXPECT_EQ(shown.Selected(), std::set<int>{});
            EXPECT_EQ(shown.Current(), 1);
        }
    }
    QTest::mousePress(shown.pView->viewport(), Qt::LeftButton, {}, below);
    QTest::mouseMove(shown.pView->viewport(), shown.At(2));
    EXPECT_EQ(shown.Selected(), (std::set<int>{2, 3, 4}));
    // A hand that shakes does not drag, and rows that go end a drag.
    QTest::mouseRelease(shown.pView->viewport(), Qt::LeftButton);
    const QPoint edge(60, shown.RowRect(1).bottom());
    QTest::mousePress(shown.pView->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(shown.pView->viewport(), edge + QPoint(0, 2));
    EXPECT_EQ(shown.Selected(), std::set<int>{1});
    shown.list.ListItems.Clear();
    QTest::mouseMove(shown.pView->viewport(), below);
    QTest::mouseRelease(shown.pView->viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(shown.list.SelectedItem(), std::nullopt);
}

TEST(ListViewPicking, ADragHeldOutsideScrolls)
{
    tShown shown(200);
    QTest::mousePress(shown.pView->viewport(), Qt::LeftButton, {}, shown.At(3));
    QTest::mouseMove(shown.pView->viewport(), {60, shown.pView->viewport()->height() + 200});
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Current() == 199; }));
    EXPECT_EQ(shown.Selected().size(), 197U);
    QTest::mouseRelease(shown.pView->viewport(), Qt::LeftButton);
}

TEST(ListViewPicking, SelectsOneRowByItsLabel)
{
    tShown shown(5, false);
    shown.Click(2);
    shown.Click(3, Qt::ControlModifier);
    EXPECT_EQ(shown.Selected(), std::set<int>{3});
    QTest::keyClick(shown.pView.get(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(shown.Selected(), std::set<int>{2});
    shown.Drag(1, 4);
    EXPECT_EQ(shown.Selected(), std::set<int>{1});
    // Behind the name there is no row, nor in another column.
    const int nY = shown.RowRect(2).center().y();
    const auto rowAt = [&](int nX) {
        const QPoint pos = shown.pView->viewport()->mapTo(shown.pView.get(), QPoint(nX, nY));
        const auto item =
            shown.list.HitTest(static_cast<float>(pos.x()) * 15, static_cast<float>(pos.y()) * 15);
        return item ? static_cast<int>(item->Index()) : 0;
    };
    EXPECT_EQ(rowAt(10), 3);
    EXPECT_EQ(rowAt(150), 0);
    EXPECT_EQ(rowAt(220), 0);
    EXPECT_FALSE(shown.pView->selectionModel()->isSelected(shown.pView->model()->index(1, 1)));
    // The list's own rule says which row is current once rows have gone; none is selected by itself.
    shown.list.ListItems.Remove(2);
    shown.Settle();
    EXPECT_EQ(shown.Selected(), std::set<int>{});
    EXPECT_EQ(shown.pView->currentIndex().row(), 1);
    shown.list.SetSortOrder(1);
    shown.list.SetSorted(true);
    shown.Settle();
    EXPECT_EQ(shown.pView->currentIndex().row(), 2);
    EXPECT_EQ(shown.pView->model()->index(0, 0).data().toString(), "file 4");
}

} // namespace

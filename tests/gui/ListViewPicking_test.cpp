// SPDX-License-Identifier: MIT
#include "ShownList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace {

using tShown = support::tShownList;

/// What a list of rows is expected to do, said as plainly as possible.
struct tExpected {
    std::set<int> selected;
    int nCurrent = 0, nAnchor = 0;

    void Set(int nRow, bool bSelected)
    {
        selected.erase(nRow);
        if (bSelected) {
            selected.insert(nRow);
        }
    }
    void Toggle(int nRow) { Set(nRow, !selected.contains(nRow)); }
    void SetRange(int nFrom, int nTo, bool bSelected)
    {
        for (int n = std::min(nFrom, nTo); n <= std::max(nFrom, nTo); ++n) {
            Set(n, bSelected);
        }
    }
    void Pick(int nRow, Qt::KeyboardModifiers held)
    {
        nCurrent = nRow;
        if (!held.testFlag(Qt::ControlModifier)) {
            selected.clear();
        }
        if (held.testFlag(Qt::ShiftModifier)) {
            SetRange(nAnchor, nRow, true);
        } else {
            nAnchor = nRow;
            Toggle(nRow);
        }
    }
    void Drag(int nFrom, int nTo, Qt::KeyboardModifiers held)
    {
        const bool bTakes = held == Qt::ControlModifier && selected.contains(nFrom);
        if (!held.testFlag(Qt::ControlModifier)) {
            selected.clear();
        }
        nAnchor = held.testFlag(Qt::ShiftModifier) ? nAnchor : nFrom;
        SetRange(nAnchor, nTo, !bTakes);
        nCurrent = nTo;
    }
};

TEST(ListViewPicking, SelectsAsListsDo)
{
    constexpr int kRows = 200;
    const Qt::KeyboardModifiers kHeld[] = {
        {}, Qt::ControlModifier, Qt::ShiftModifier, Qt::ControlModifier | Qt::ShiftModifier};
    const std::pair<Qt::Key, int> kMoves[] = {
        {Qt::Key_Up, -1}, {Qt::Key_Down, 1}, {Qt::Key_Home, -kRows}, {Qt::Key_End, kRows}};
    tShown shown(kRows);
    EXPECT_TRUE(shown.Selected().empty()) << "the first row is current, not selected";
    shown.Click(0);
    tExpected expected{{0}};
    std::mt19937 random(7); // NOLINT: the same course each time
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int nStep = 0; nStep < 2000; ++nStep) {
        const int nRow = below(kRows);
        const auto held = kHeld[below(4)];
        const int nAction = below(7);
        if (nAction == 0) {
            shown.Click(nRow, held);
            expected.Pick(nRow, held);
        } else if (nAction == 1) {
            const auto [key, nDistance] = kMoves[below(4)];
            QTest::keyClick(shown.pView.get(), key, held);
            const int nTo = std::clamp(expected.nCurrent + nDistance, 0, kRows - 1);
            held == Qt::ControlModifier ? static_cast<void>(expected.nCurrent = nTo)
                                        : expected.Pick(nTo, held);
        } else if (nAction == 2) {
            QTest::keyClick(shown.pView.get(), Qt::Key_Space, held);
            if (held != Qt::NoModifier) {
                expected.Pick(expected.nCurrent, held);
            } else if (!expected.selected.contains(expected.nCurrent)) {
                expected.Pick(expected.nCurrent, Qt::ControlModifier);
            }
        } else if (nAction == 3) {
            shown.Click(nRow, held, Qt::RightButton);
            if (held == Qt::NoModifier && !expected.selected.contains(nRow)) {
                expected.Pick(nRow, held);
            }
            expected.nCurrent = nRow;
        } else if (nAction == 4) {
            const int nTo = std::clamp(nRow + below(30) - 15, 0, kRows - 1);
            shown.Drag(nRow, nTo, held);
            expected.Drag(nRow, nTo, held);
        } else {
            auto row = shown.list.ListItems(static_cast<std::size_t>(nRow) + 1);
            const QModelIndex seen = shown.pView->model()->index(nRow, 0);
            nAction == 5 ? row.SetSelected(!row.Selected()) // the program selects, and who reads the screen
                         : shown.pView->selectionModel()->select(seen, QItemSelectionModel::Toggle);
            expected.Toggle(nRow);
        }
        shown.Settle();
        SCOPED_TRACE("step " + std::to_string(nStep) + ", action " + std::to_string(nAction));
        ASSERT_EQ(shown.Selected(), expected.selected);
        ASSERT_EQ(shown.Current(), expected.nCurrent);
        ASSERT_EQ(shown.pView->currentIndex().row(), expected.nCurrent);
        const int nTop = shown.pView->indexAt({5, 0}).row();
        for (int n = nTop; n < std::min(kRows, nTop + 15); ++n) {
            ASSERT_EQ(shown.pView->selectionModel()->isSelected(shown.pView->model()->index(n, 1)),
                      expected.selected.contains(n))
                << "what is seen of row " << n;
        }
    }
}

TEST(ListViewPicking, EmptySpaceClearsAndStartsADrag)
{
    tShown shown(5);
    QWidget* const pRows = shown.pView->viewport();
    const QPoint below(60, shown.RowRect(4).bottom() + 60);
    for (const QPoint& pos : {below, QPoint(350, shown.RowRect(2).center().y())}) {
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            shown.Click(1);
            QTest::mouseClick(pRows, button, Qt::ControlModifier, pos);
            EXPECT_EQ(shown.Selected(), std::set<int>{1});
            QTest::mouseClick(pRows, button, {}, pos);
            EXPECT_EQ(shown.Selected(), std::set<int>{});
        }
    }
    QTest::mousePress(pRows, Qt::LeftButton, {}, below);
    QTest::mouseMove(pRows, shown.At(2));
    EXPECT_EQ(shown.Selected(), (std::set<int>{2, 3, 4}));
    shown.list.ListItems.Clear(); // ends the drag
    QTest::mouseMove(pRows, below);
    QTest::mouseRelease(pRows, Qt::LeftButton, {}, below);
    EXPECT_EQ(shown.list.SelectedItem(), std::nullopt);
}

TEST(ListViewPicking, GoesBeyondWhatIsInSight)
{
    tShown shown(200);
    QTest::keyClick(shown.pView.get(), Qt::Key_PageDown);
    EXPECT_GT(shown.Current(), 5);
    QTest::keyClick(shown.pView.get(), Qt::Key_PageUp);
    EXPECT_EQ(shown.Selected(), std::set<int>{0});
    // A drag held outside scrolls.
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
    for (const int nX : {150, 220}) {
        QTest::mouseClick(shown.pView->viewport(), Qt::LeftButton, {}, {nX, shown.RowRect(2).center().y()});
        EXPECT_EQ(shown.Selected(), std::set<int>{}) << nX;
    }
    // The list's own rule says which row is current once rows have gone; none is selected by itself.
    shown.list.ListItems.Remove(2);
    shown.Settle();
    EXPECT_EQ(shown.Selected(), std::set<int>{});
    EXPECT_EQ(shown.pView->currentIndex().row(), 1);
}

} // namespace

#include "ListViewWidget.h"
#include "ShownText.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using platform::Alignment;
using platform::ListView;

/// A list and the widget that shows it, about 20 rows of it.
struct tShown {
    explicit tShown(int nRows, bool bMultiSelect = true)
    {
        list.AddColumn("Name", Alignment::Left, 3000);
        list.AddColumn("Size", Alignment::Right, 1005);
        list.MultiSelect = bMultiSelect;
        list.Message(ListView::LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                     bMultiSelect ? ListView::LVS_EX_FULLROWSELECT : 0);
        pView = std::make_unique<desktop::ListViewWidget>(list, nullptr);
        pView->resize(400, 400);
        for (int n = 0; n < nRows; ++n) {
            const std::string sName = "file " + std::to_string(n);
            list.ListItems.Add("/" + sName, sName, 3);
        }
        pView->show();
        Settle();
    }

    void Settle() { pView->grab(); }
    [[nodiscard]] QRect RowRect(int nRow) { return pView->visualRect(pView->model()->index(nRow, 0)); }

    /// The middle of a row, scrolled to if it is out of sight.
    QPoint At(int nRow)
    {
        list.ListItems(static_cast<std::size_t>(nRow) + 1).EnsureVisible();
        Settle();
        return {30, RowRect(nRow).center().y()};
    }

    void Click(int nRow, Qt::KeyboardModifiers held = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint pos = At(nRow);
        QTest::mouseClick(pView->viewport(), button, held, pos);
    }

    void Drag(int nFrom, int nTo, Qt::KeyboardModifiers held = {})
    {
        QTest::mousePress(pView->viewport(), Qt::LeftButton, held, At(nFrom));
        QTest::mouseMove(pView->viewport(), At(nFrom) + QPoint(QApplication::startDragDistance(), 0));
        for (const int nRow : {nTo / 2, nTo}) {
            QTest::mouseMove(pView->viewport(), At(nRow));
        }
        QTest::mouseRelease(pView->viewport(), Qt::LeftButton, held, At(nTo));
    }

    [[nodiscard]] std::set<int> Selected() const
    {
        std::set<int> rows;
        const auto& bits = list.ListItems.Selection();
        for (std::size_t n = 0; n < bits.size(); ++n) {
            if (bits[n]) {
                rows.insert(static_cast<int>(n));
            }
        }
        return rows;
    }
    [[nodiscard]] int Current() { return static_cast<int>(list.SelectedItem()->Index()) - 1; }

    platform::Form form;
    ListView list{form};
    std::unique_ptr<desktop::ListViewWidget> pView;
};

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

TEST(ListViewWidget, SelectsAsListsDo)
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

TEST(ListViewWidget, EmptySpaceClearsAndStartsADrag)
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

TEST(ListViewWidget, ADragHeldOutsideScrolls)
{
    tShown shown(200);
    QTest::mousePress(shown.pView->viewport(), Qt::LeftButton, {}, shown.At(3));
    QTest::mouseMove(shown.pView->viewport(), {60, shown.pView->viewport()->height() + 200});
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Current() == 199; }));
    EXPECT_EQ(shown.Selected().size(), 197U);
    QTest::mouseRelease(shown.pView->viewport(), Qt::LeftButton);
}

TEST(ListViewWidget, SelectsOneRowByItsLabel)
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

TEST(ListViewWidget, WaitsWithRowsUntilTheyCanBeSeen)
{
    QWidget window;
    platform::Form form;
    ListView list(form);
    ListView covering(form);
    for (auto* pList : {&list, &covering}) {
        pList->AddColumn("Name", Alignment::Left, 3000);
    }
    desktop::ListViewWidget view(list, &window);
    desktop::ListViewWidget cover(covering, &window);
    view.resize(300, 300);
    cover.resize(300, 300);
    window.show();
    QApplication::processEvents();
    for (int n = 0; n < 100; ++n) {
        const std::string sName = std::to_string(n);
        list.ListItems.Add(sName, sName, 2);
        QApplication::processEvents();
        ASSERT_EQ(view.model()->rowCount(), 0);
    }
    list.ListItems(100).EnsureVisible();
    cover.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.model()->rowCount() == 100; }));
    EXPECT_TRUE(view.rect().contains(view.visualRect(view.model()->index(99, 0)).center()));
    // A row that comes while the list is seen shows by itself.
    list.ListItems.Add("new", "new", 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.model()->rowCount() == 101; }));
    list.ListItems(101).SetSmallIcon(7);
    EXPECT_EQ(view.model()->index(100, 0).data(Qt::AccessibleTextRole).toString(),
              "new, last of group, gone");
}

/// The unbroken runs of mark pixels down the column of the list that has most of them, as first and last row.
std::vector<std::pair<int, int>> Strokes(const QImage& image)
{
    const std::set<QRgb> marks = {0xFF0000FF, 0xFF8FA8FF, 0xFFFF0000, 0xFFFF9090};
    std::vector<std::pair<int, int>> best;
    int nBest = 0;
    for (int x = 0; x < image.width() / 4; ++x) {
        std::vector<std::pair<int, int>> runs;
        int nPixels = 0;
        for (int y = 0; y < image.height(); ++y) {
            if (!marks.contains(image.pixel(x, y))) {
                continue;
            }
            if (runs.empty() || runs.back().second != y - 1) {
                runs.emplace_back(y, y);
            }
            runs.back().second = y;
            ++nPixels;
        }
        if (nPixels > nBest) {
            best = runs;
            nBest = nPixels;
        }
    }
    return best;
}

TEST(ListViewWidget, JoinsTheMarksOfAGroup)
{
    const QPalette usual = QApplication::palette();
    const std::vector<std::vector<int>> groups = {{2, 3, 3, 4}, {2, 4}, {5, 3, 6, 7}, {2, 7}};
    const struct {
        double factor;
        int nFontPixels;
        bool bDark;
    } cases[] = {{1, 11, false},  {1.25, 11, false}, {1.25, 12, true}, {1.5, 11, false},
                 {1.5, 20, true}, {1.75, 13, false}, {2, 11, true},    {1, 7, false}};
    for (const auto& each : cases) {
        QApplication::setPalette(each.bDark ? QPalette(QColor(60, 60, 60), QColor(35, 35, 35)) : usual);
        tShown shown(0);
        QFont font = shown.pView->font();
        font.setPixelSize(each.nFontPixels);
        shown.pView->setFont(font);
        for (const auto& group : groups) {
            for (const int nMark : group) {
                const std::string sKey = std::to_string(shown.list.ListItems.Count());
                shown.list.ListItems.Add(sKey, sKey, nMark);
            }
        }
        shown.list.ListItems(3).SetSelected(true);
        QWidget& area = *shown.pView->viewport();
        QImage image(area.size() * each.factor, QImage::Format_ARGB32);
        image.setDevicePixelRatio(each.factor);
        area.render(&image);

        const auto strokes = Strokes(image);
        ASSERT_EQ(strokes.size(), groups.size()) << "factor " << each.factor;
        int nRow = 0;
        for (std::size_t n = 0; n < groups.size(); ++n) {
            const QRect first = shown.RowRect(nRow);
            nRow += static_cast<int>(groups[n].size());
            const QRect last = shown.RowRect(nRow - 1);
            // From the arm in the first row to the arm in the last.
            EXPECT_NEAR(strokes[n].first / each.factor, first.center().y(), 4) << each.factor;
            EXPECT_NEAR(strokes[n].second / each.factor, last.center().y(), 4) << each.factor;
        }
    }
    QApplication::setPalette(usual);
}

TEST(ShownText, ShowsWhatCannotBeSeenAndCanBeReadBack)
{
    const struct {
        const char* pBytes;
        const char* pShown;
    } cases[] = {
        {"plain name.txt", "plain name.txt"},
        {"\xC3\xA9t\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80",
         "\xC3\xA9t\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"a\nb\x7F\x1B", R"(a\x0Ab\x7F\x1B)"},
        {"\xFF\xC3", R"(\xFF\xC3)"},
        {"\xED\xA0\x80", R"(\xED\xA0\x80)"},                 // half of a surrogate pair
        {"\xC2\x85\xE2\x80\xA8", R"(\xC2\x85\xE2\x80\xA8)"}, // line ends of their own
        {"\xE2\x80\xAEgpj.exe", R"(\xE2\x80\xAEgpj.exe)"},   // turns the text round
        {R"(back\slash \xyz \x4 \)", R"(back\slash \xyz \x4 \)"},
        {R"(\x0A \xfF)", R"(\x5Cx0A \x5CxfF)"},
        {"\\\x01", R"(\\x01)"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(desktop::ShownText(each.pBytes).toStdString(), each.pShown);
    }
    // Whatever the bytes, reading the escapes gives them back.
    const auto readBack = [](const std::string& sShown) {
        std::string sBytes;
        for (std::size_t n = 0; n < sShown.size(); ++n) {
            const std::string sDigits = sShown.substr(n, 2) == "\\x" ? sShown.substr(n + 2, 2) : "";
            if (sDigits.size() == 2 &&
                sDigits.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos) {
                sBytes += static_cast<char>(std::stoi(sDigits, nullptr, 16));
                n += 3;
            } else {
                sBytes += sShown[n];
            }
        }
        return sBytes;
    };
    std::mt19937 random(11); // NOLINT: the same course each time
    const std::string sAlphabet = "\\\\\\xx05aF\n\xC3\xA9\xE2\x82\xAC\xFF";
    for (int n = 0; n < 5000; ++n) {
        std::string sBytes(random() % 12, ' ');
        std::generate(sBytes.begin(), sBytes.end(), [&] { return sAlphabet[random() % sAlphabet.size()]; });
        ASSERT_EQ(readBack(desktop::ShownText(sBytes).toStdString()), sBytes);
    }
}

} // namespace

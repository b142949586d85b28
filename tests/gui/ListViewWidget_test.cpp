// SPDX-License-Identifier: MIT
#include "ListColors.h"
#include "ShownList.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

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
    shown.list.MenuKey = [&] { sHeard += "menu "; };

    const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> cases[] = {
        {Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier, "46/5 "},
        {Qt::Key_A, Qt::ControlModifier, "65/2 "},
        {Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier, "16/2 "},
    };
    for (const auto& [key, held, pHeard] : cases) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            EXPECT_EQ(sHeard, "") << "keys act when they come up";
            QKeyEvent event(type, key, held);
            QApplication::sendEvent(shown.pView.get(), &event);
        }
        EXPECT_EQ(std::exchange(sHeard, {}), pHeard);
        EXPECT_TRUE(shown.Selected().empty()) << "the toolkit selects nothing by itself";
    }
    QWidget* const pRows = shown.pView->viewport();
    shown.Click(1, Qt::ControlModifier);
    QTest::mouseDClick(pRows, Qt::LeftButton, {}, shown.At(1));
    QTest::mouseRelease(pRows, Qt::LeftButton, {}, shown.At(1));
    QTest::mouseClick(pRows, Qt::RightButton, {}, {350, 300});
    QTest::mouseClick(pRows, Qt::MiddleButton, {}, shown.At(2));
    EXPECT_EQ(shown.Selected(), std::set<int>{}) << "the middle button selects nothing";
    QTest::mouseClick(shown.pView->header()->viewport(), Qt::LeftButton, {}, {50, 5});
    for (const auto reason : {QContextMenuEvent::Keyboard, QContextMenuEvent::Mouse}) {
        QContextMenuEvent event(reason, {}, {});
        QApplication::sendEvent(shown.pView.get(), &event); // the mouse has its own way
    }
    QTest::sendKeyEvent(QTest::Press, shown.pView.get(), Qt::Key_F10, QString(), Qt::ShiftModifier);
    EXPECT_EQ(sHeard, "down1/2@2 up1/2@2 down1/0@2 double up1/0@2 down2/0@- up2/0@- "
                      "down4/0@3 up4/0@3 column menu menu ");
}

TEST(ListViewWidget, KeepsColumnWidthsInStep)
{
    tShown shown(1);
    QHeaderView& header = *shown.pView->header();
    header.resizeSection(0, 123); // as a drag of the user's does
    EXPECT_FLOAT_EQ(shown.list.ColumnHeaders(1).Width(), 1845);
    shown.list.ColumnHeaders(2).SetWidth(40);
    EXPECT_EQ(header.sectionSize(1), 3);
    EXPECT_FLOAT_EQ(shown.list.ColumnHeaders(2).Width(), 40) << "the program's own width stays exact";
}

TEST(ListViewWidget, ShowsTheTellingPartOfACutTextAndTheRestAsATip)
{
    tShown shown(1);
    const std::string sLong(100, 'm');
    const std::tuple<int, std::string, bool, bool> cases[] = {{0, "<b>short", false, true},
                                                              {1, "/sh", false, true},
                                                              {0, "<b>" + sLong, true, false},
                                                              {1, "/" + sLong, true, true}};
    for (const auto& [nColumn, sLead, bCut, bEndShows] : cases) {
        shown.list.ListItems.Clear();
        std::array<QImage, 2> pictures;
        for (const int nRow : {0, 1}) {
            const std::string sText = sLead + (nRow == 0 ? '1' : '8');
            auto row = shown.list.ListItems.Add(sText, nColumn == 0 ? sText : "", 0);
            row->SetSubItems(1, nColumn == 1 ? sText : "");
            const QPoint place = shown.At(nRow);
            const QRect rect = shown.pView->visualRect(shown.pView->model()->index(nRow, nColumn));
            pictures[static_cast<std::size_t>(nRow)] = shown.pView->viewport()->grab(rect).toImage();
            QToolTip::hideText();
            QHelpEvent event(QEvent::ToolTip, rect.center(), shown.pView->viewport()->mapToGlobal(place));
            QApplication::sendEvent(shown.pView->viewport(), &event);
            EXPECT_EQ(QToolTip::text().contains(QString::fromStdString(sText).toHtmlEscaped()), bCut)
                << sText;
        }
        EXPECT_EQ(pictures[0] != pictures[1], bEndShows) << sLead;
    }
    QToolTip::hideText();
}

TEST(ListViewWidget, FindsWhatIsTyped)
{
    const int nUsual = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(3'600'000);
    tShown shown(0);
    for (const char* pName : {"alpha", "Beta", "bravo", "\xC3\x84pfel", "\\x41", "new\nline", "BETA 2"}) {
        shown.list.ListItems.Add(pName, pName, 3);
    }
    const std::pair<const char*, int> steps[] = {
        {"b", 1},       {"B", 2},       {"b", 6},         {"b", 1}, // from row to row, and round
        {"bet", 6},     {"beta", 1},    {"beta ", 6},     {"z", 6}, // from the next row on
        {"\u00e4P", 3}, {"\\x5Cx4", 4}, {"new\\x0aL", 5},           // names are found as they are shown
    };
    for (const auto& [pTyped, nRow] : steps) {
        for (const QChar c : QString::fromUtf8(pTyped)) {
            const int nKey = c == QLatin1Char(' ') ? Qt::Key_Space : Qt::Key_unknown;
            QTest::sendKeyEvent(QTest::Press, shown.pView.get(), Qt::Key(nKey), c, Qt::NoModifier);
        }
        EXPECT_EQ(shown.Selected(), std::set<int>{nRow}) << pTyped;
        shown.pView->keyboardSearch({}); // as after a pause
    }
    QApplication::setKeyboardInputInterval(nUsual);
}

TEST(ListViewWidget, ColoursFitTheDesktop)
{
    const QPalette light = QApplication::palette();
    const auto with = [](QPalette palette, const QColor& tipBase, const QColor& tipText) {
        palette.setColor(QPalette::ToolTipBase, tipBase);
        palette.setColor(QPalette::ToolTipText, tipText);
        return palette;
    };
    const QPalette dark(QColor(60, 60, 60), QColor(35, 35, 35));
    QPalette darkThroughout = with(dark, QColor(62, 60, 44), Qt::white);
    darkThroughout.setColor(QPalette::Inactive, QPalette::Highlight, QColor(80, 80, 90));
    const std::tuple<const char*, QPalette, bool, bool> cases[] = {
        {"light", light, true, false},
        {"dark, bright tips", with(dark, QColor(0xFF, 0xFF, 0xDC), Qt::black), false, false},
        {"dark throughout", darkThroughout, true, true},
        {"light, black tips", with(light, Qt::black, Qt::white), false, false}};
    for (const auto& [pName, system, bKeepsInformation, bKeepsInactive] : cases) {
        SCOPED_TRACE(pName);
        for (const auto background :
             {platform::SystemColor::InfoBackground, platform::SystemColor::WindowBackground}) {
            const bool bInformation = background == platform::SystemColor::InfoBackground;
            const QPalette shown = desktop::ListColors(system, background);
            const QColor base = shown.color(QPalette::Base);
            EXPECT_EQ(base == system.color(QPalette::ToolTipBase), bInformation && bKeepsInformation);
            EXPECT_EQ(base == system.color(QPalette::Base), !bInformation);
            EXPECT_LT(desktop::Contrast(base, system.color(QPalette::Base)), 2) << "it glares";
            EXPECT_GT(desktop::Contrast(base, shown.color(QPalette::Text)), 4.5);
            const QColor unfocused = shown.color(QPalette::Inactive, QPalette::Highlight);
            const QColor text = shown.color(QPalette::Inactive, QPalette::HighlightedText);
            EXPECT_EQ(unfocused == system.color(QPalette::Inactive, QPalette::Highlight), bKeepsInactive);
            EXPECT_NE(unfocused, shown.color(QPalette::Highlight));
            EXPECT_GT(desktop::Contrast(unfocused, base), 1.2) << "it cannot be seen";
            EXPECT_GT(desktop::Contrast(unfocused, text), 4.5);
        }
    }
}

/// The runs of pixels of marks down the list, each from the first line that has one to the last. A run goes
/// on behind a gap of up to `nBridged` lines.
std::vector<std::pair<int, int>> Strokes(const QImage& image, int nBridged)
{
    const std::set<QRgb> marks = {0xFF0000FF, 0xFF8FA8FF, 0xFFFF0000, 0xFFFF9090};
    std::vector<std::pair<int, int>> runs;
    for (int y = 0; y < image.height(); ++y) {
        bool bMarked = false;
        for (int x = 0; x < image.width() / 4; ++x) {
            bMarked |= marks.contains(image.pixel(x, y));
        }
        if (bMarked && (runs.empty() || y - runs.back().second - 1 > nBridged)) {
            runs.emplace_back(y, y);
        } else if (bMarked) {
            runs.back().second = y;
        }
    }
    return runs;
}

TEST(ListViewWidget, JoinsTheMarksOfAGroup)
{
    const QPalette usual = QApplication::palette();
    const std::vector<int> groups = {4, 2, 4, 2}; // how many rows each has
    const std::tuple<double, int, bool> cases[] = {
        {1, 11, false}, {1, 7, false}, {1.25, 12, true}, {1.5, 20, true}, {1.75, 13, false}};
    for (const auto& [factor, nFontPixels, bDark] : cases) {
        QApplication::setPalette(bDark ? QPalette(QColor(60, 60, 60), QColor(35, 35, 35)) : usual);
        tShown shown(0);
        QFont font = shown.pView->font();
        font.setPixelSize(nFontPixels);
        shown.pView->setFont(font);
        for (const int nMark : {2, 3, 3, 4, 2, 4, 5, 3, 6, 7, 2, 7}) {
            const std::string sKey = std::to_string(shown.list.ListItems.Count());
            shown.list.ListItems.Add(sKey, sKey, nMark);
        }
        shown.list.ListItems(3).SetSelected(true);
        QImage image(shown.pView->viewport()->size() * factor, QImage::Format_ARGB32);
        image.setDevicePixelRatio(factor);
        shown.pView->viewport()->render(&image);

        // Those of files that have gone are broken, the others whole.
        EXPECT_EQ(Strokes(image, 0).size(), groups.size() + 5) << "factor " << factor;
        const auto strokes = Strokes(image, static_cast<int>(std::ceil(2 * factor)));
        ASSERT_EQ(strokes.size(), groups.size()) << "factor " << factor;
        int nRow = 0;
        for (std::size_t n = 0; n < groups.size(); ++n) { // from the arm in the first row to that in the last
            EXPECT_NEAR(strokes[n].first / factor, shown.RowRect(nRow).center().y(), 4) << factor;
            nRow += groups[n];
            EXPECT_NEAR(strokes[n].second / factor, shown.RowRect(nRow - 1).center().y(), 4);
        }
    }
    QApplication::setPalette(usual);
}

} // namespace

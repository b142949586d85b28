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

    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers held;
        const char* pHeard;
    } cases[] = {
        {Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier, "46/5 "},
        {Qt::Key_A, Qt::ControlModifier, "65/2 "},
        {Qt::Key_Control, Qt::ControlModifier, "17/0 "},
        {Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier, "16/2 "},
    };
    for (const auto& each : cases) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            EXPECT_EQ(sHeard, "") << "keys act when they come up";
            QKeyEvent event(type, each.key, each.held);
            QApplication::sendEvent(shown.pView.get(), &event);
        }
        EXPECT_EQ(std::exchange(sHeard, {}), each.pHeard);
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
    EXPECT_EQ(sHeard, "down1/2@2 up1/2@2 double up1/0@2 down2/0@- up2/0@- "
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
    const struct {
        int nColumn;
        std::string sText;
        bool bCut, bEndShows;
    } cases[] = {{0, "<b>short", false, true},
                 {1, "/sh", false, true},
                 {0, "<b>" + sLong, true, false},
                 {1, "/" + sLong, true, true}};
    for (const auto& each : cases) {
        shown.list.ListItems.Clear();
        std::array<QImage, 2> pictures;
        for (const char cEnd : {'1', '8'}) {
            const std::string sText = each.sText + cEnd;
            auto row = shown.list.ListItems.Add(sText, each.nColumn == 0 ? sText : "", 0);
            row->SetSubItems(1, each.nColumn == 1 ? sText : "");
            const QPoint place = shown.At(cEnd == '1' ? 0 : 1);
            const QRect rect =
                shown.pView->visualRect(shown.pView->model()->index(cEnd == '1' ? 0 : 1, each.nColumn));
            pictures[cEnd == '1' ? 0 : 1] = shown.pView->viewport()->grab(rect).toImage();
            QToolTip::hideText();
            QHelpEvent event(QEvent::ToolTip, rect.center(), shown.pView->viewport()->mapToGlobal(place));
            QApplication::sendEvent(shown.pView->viewport(), &event);
            EXPECT_EQ(QToolTip::text().contains(QString::fromStdString(sText).toHtmlEscaped()), each.bCut)
                << sText;
        }
        EXPECT_EQ(pictures[0] != pictures[1], each.bEndShows) << each.sText;
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
    QPalette dark(QColor(60, 60, 60), QColor(35, 35, 35));
    dark.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xDC));
    dark.setColor(QPalette::ToolTipText, Qt::black);
    QPalette darkThroughout = dark;
    darkThroughout.setColor(QPalette::ToolTipBase, QColor(62, 60, 44));
    darkThroughout.setColor(QPalette::ToolTipText, Qt::white);
    darkThroughout.setColor(QPalette::Inactive, QPalette::Highlight, QColor(80, 80, 90));
    QPalette lightWithBlackTips = light;
    lightWithBlackTips.setColor(QPalette::ToolTipBase, Qt::black);
    lightWithBlackTips.setColor(QPalette::ToolTipText, Qt::white);
    const struct {
        const char* pName;
        const QPalette& system;
        bool bKeepsInformation, bKeepsInactive;
    } cases[] = {{"light", light, true, false},
                 {"dark, bright information", dark, false, false},
                 {"dark throughout", darkThroughout, true, true},
                 {"light, black information", lightWithBlackTips, false, false}};
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
            EXPECT_EQ(unfocused == system.color(QPalette::Inactive, QPalette::Highlight), bKeepsInactive);
            EXPECT_NE(unfocused, shown.color(QPalette::Highlight));
            EXPECT_GT(desktop::Contrast(unfocused, base), 1.2) << "it cannot be seen";
            EXPECT_GT(
                desktop::Contrast(unfocused, shown.color(QPalette::Inactive, QPalette::HighlightedText)),
                4.5);
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
    const std::vector<std::vector<int>> groups = {{2, 3, 3, 4}, {2, 4}, {5, 3, 6, 7}, {2, 7}};
    const struct {
        double factor;
        int nFontPixels;
        bool bDark;
    } cases[] = {{1, 11, false}, {1, 7, false}, {1.25, 12, true}, {1.5, 20, true}, {1.75, 13, false}};
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
        QImage image(shown.pView->viewport()->size() * each.factor, QImage::Format_ARGB32);
        image.setDevicePixelRatio(each.factor);
        shown.pView->viewport()->render(&image);

        // Those of files that have gone are broken, the others whole.
        EXPECT_EQ(Strokes(image, 0).size(), groups.size() + 5) << "factor " << each.factor;
        const auto strokes = Strokes(image, static_cast<int>(std::ceil(2 * each.factor)));
        ASSERT_EQ(strokes.size(), groups.size()) << "factor " << each.factor;
        int nRow = 0;
        for (std::size_t n = 0; n < groups.size(); ++n) {
            // From the arm in the first row to the arm in the last.
            EXPECT_NEAR(strokes[n].first / each.factor, shown.RowRect(nRow).center().y(), 4) << each.factor;
            nRow += static_cast<int>(groups[n].size());
            EXPECT_NEAR(strokes[n].second / each.factor, shown.RowRect(nRow - 1).center().y(), 4);
        }
    }
    QApplication::setPalette(usual);
}

} // namespace

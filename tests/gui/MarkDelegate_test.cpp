#include "ShownList.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

namespace {

using tShown = support::tShownList;

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

TEST(MarkDelegate, JoinsTheMarksOfAGroup)
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

} // namespace

#pragma once

#include "ListViewWidget.h"

#include <QApplication>
#include <QTest>

#include <memory>
#include <set>
#include <string>

namespace support {

using platform::Alignment;
using platform::ListView;

/// A list and the widget that shows it, about 20 rows of it.
struct tShownList {
    explicit tShownList(int nRows, bool bMultiSelect = true)
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

} // namespace support

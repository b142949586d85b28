// SPDX-License-Identifier: MIT
#pragma once

#include "ListViewWidget.h"

#include <QApplication>
#include <QTest>

#include <memory>
#include <set>
#include <string>

namespace support {

/// A list and the widget that shows it, about 20 rows of it.
struct tShownList {
    explicit tShownList(int nRows, bool bMultiSelect = true)
    {
        list.AddColumn("Name", platform::Alignment::Left, 3000);
        list.AddColumn("Size", platform::Alignment::Right, 1005, platform::Ellipsis::InMiddle);
        list.MultiSelect = bMultiSelect;
        list.Message(platform::ListView::LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                     bMultiSelect ? platform::ListView::LVS_EX_FULLROWSELECT : 0);
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
        QTest::mouseClick(pView->viewport(), button, held, At(nRow));
    }

    void Drag(int nFrom, int nTo, Qt::KeyboardModifiers held = {})
    {
        QTest::mousePress(pView->viewport(), Qt::LeftButton, held, At(nFrom));
        for (const int nRow : {nTo / 2, nTo}) {
            QTest::mouseMove(pView->viewport(), At(nRow) + QPoint(QApplication::startDragDistance(), 0));
        }
        QTest::mouseRelease(pView->viewport(), Qt::LeftButton, held, At(nTo));
    }

    [[nodiscard]] std::set<int> Selected() const
    {
        std::set<int> rows;
        for (std::size_t n = 0; n < list.ListItems.Count(); ++n) {
            if (list.ListItems.Selection()[n]) {
                rows.insert(static_cast<int>(n));
            }
        }
        return rows;
    }
    [[nodiscard]] int Current() { return static_cast<int>(list.SelectedItem()->Index()) - 1; }

    platform::Form form;
    platform::ListView list{form};
    std::unique_ptr<desktop::ListViewWidget> pView;
};

} // namespace support

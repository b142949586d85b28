// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QIcon>
#include <QStyledItemDelegate>

namespace desktop {

/// Paints the cells of a list with the pictures of its rows: 1 is a folder, 2 to 7 are the marks of a group's
/// first, middle and last row, in blue, and in red and broken for a file that has gone. The marks fill the
/// height of their row, so that those of a group join into one bracket. The whole text of a cell that is cut
/// is its tool tip.
class MarkDelegate final : public QStyledItemDelegate
{
public:
    explicit MarkDelegate(platform::ListView& list);

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The part of a cell that its picture and its text take up. Without full row selection it is what shows
    /// the selection and what takes the mouse.
    [[nodiscard]] QRect Label(const QStyleOptionViewItem& option, const QModelIndex& index) const;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;

private:
    platform::ListView& m_list;
    QIcon m_folder;
};

} // namespace desktop

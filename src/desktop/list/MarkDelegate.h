// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <QIcon>
#include <QStyledItemDelegate>

namespace desktop {

/// Paints the cells of a list with the icons of its rows: 1 is a folder; 2 to 7 are the group marks for the
/// first, middle and last row, first in blue and then, for files that have gone, in red and broken. The marks
/// fill the height of their rows, so that those of a group form one bracket. A truncated cell shows its whole
/// text as a tool tip.
class MarkDelegate final : public QStyledItemDelegate
{
public:
    explicit MarkDelegate(platform::ListView& list);

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The part of a cell covered by its icon and text. Without full-row selection, only this part shows the
    /// selection and reacts to the mouse.
    [[nodiscard]] QRect Label(const QStyleOptionViewItem& option, const QModelIndex& index) const;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;

private:
    platform::ListView& m_list;
    QIcon m_folder;
};

} // namespace desktop

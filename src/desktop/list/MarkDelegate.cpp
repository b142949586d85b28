// SPDX-License-Identifier: MIT
#include "MarkDelegate.h"

#include "GroupMarks.h"
#include "ListColors.h"
#include "Pictures.h"
#include "RowModel.h"
#include "ShownText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace desktop {
namespace {

// The geometry of a mark in a square of 16 by 16.
constexpr int kSide = 16;
constexpr int kStrokeLeft = 4;
constexpr int kStrokeWidth = 4;
constexpr int kArmTop = 6;
constexpr int kArmHeight = 4;
constexpr int kArmToGap = 1;
constexpr int kGapHeight = 2;

/// The pure colour, or a lighter one if that has a better contrast.
QColor MarkColor(bool bGone, const QColor& background)
{
    const QColor pure = bGone ? QColor(0xFF, 0, 0) : QColor(0, 0, 0xFF);
    const QColor pale = bGone ? QColor(0xFF, 0x90, 0x90) : QColor(0x8F, 0xA8, 0xFF);
    return Contrast(pure, background) >= Contrast(pale, background) ? pure : pale;
}

void PaintMark(QPainter& painter, const QRect& picture, const QRect& row, int nSmallIcon,
               const QColor& background)
{
    const bool bGone = platform::IsGoneMark(nSmallIcon);
    const int nMark = platform::PositionMark(nSmallIcon);
    const QColor color = MarkColor(bGone, background);
    const int nArmTop = row.top() + (row.height() - kSide) / 2 + kArmTop;
    const int nTop = nMark == platform::kMarkFirst ? nArmTop : row.top();
    const int nBottom = nMark == platform::kMarkLast ? nArmTop + kArmHeight : row.top() + row.height();
    const int nLeft = picture.left() + kStrokeLeft;
    QRegion mark(nLeft, nTop, kStrokeWidth, nBottom - nTop);
    if (bGone) {
        // The stroke for a file that has gone is broken, for users who cannot distinguish red and blue. It
        // still connects to the next row.
        mark -= QRect(nLeft, nArmTop - kArmToGap - kGapHeight, kStrokeWidth, kGapHeight);
        mark -= QRect(nLeft, nArmTop + kArmHeight + kArmToGap, kStrokeWidth, kGapHeight);
    }
    if (nMark == platform::kMarkFirst || nMark == platform::kMarkLast) {
        mark += QRect(nLeft, nArmTop, kSide - kStrokeLeft, kArmHeight);
    }
    for (const QRect& part : mark) {
        painter.fillRect(part, color);
    }
}

QColor Background(const QStyleOptionViewItem& option)
{
    const auto group = !(option.state & QStyle::State_Enabled)  ? QPalette::Disabled
                       : !(option.state & QStyle::State_Active) ? QPalette::Inactive
                                                                : QPalette::Active;
    const bool bSelected = option.showDecorationSelected && option.state.testFlag(QStyle::State_Selected);
    return option.palette.color(group, bSelected ? QPalette::Highlight : QPalette::Base);
}

QStyle& StyleOf(const QStyleOptionViewItem& option)
{
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

} // namespace

MarkDelegate::MarkDelegate(platform::ListView& list) : m_list(list), m_folder(Picture("folder")) {}

void MarkDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(pOption, index);
    pOption->showDecorationSelected = m_list.FullRowSelect();
    const bool bInMiddle = m_list.ColumnHeaders(static_cast<std::size_t>(index.column()) + 1).ellipsis ==
                           platform::Ellipsis::InMiddle;
    pOption->textElideMode = bInMiddle ? Qt::ElideMiddle : Qt::ElideRight;
    const int nSmallIcon = index.data(RowModel::kSmallIconRole).toInt();
    if (index.column() == 0 && nSmallIcon > 0) {
        pOption->features |= QStyleOptionViewItem::HasDecoration;
        pOption->decorationSize = QSize(kSide, kSide);
        if (nSmallIcon == platform::kFolderIcon) {
            pOption->icon = m_folder;
        }
    }
}

bool MarkDelegate::helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
                             const QModelIndex& index)
{
    const QRect inSight = option.rect & pView->viewport()->rect();
    if (pEvent->type() != QEvent::ToolTip || !index.isValid() ||
        sizeHint(option, index).width() <= inSight.width()) {
        return QStyledItemDelegate::helpEvent(pEvent, pView, option, index);
    }
    QToolTip::showText(pEvent->globalPos(), AsToolTip(index.data().toString()), pView->viewport(), inSight);
    return true;
}

QRect MarkDelegate::Label(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QRect label = option.rect;
    label.setWidth(std::min(label.width(), sizeHint(option, index).width()));
    return label;
}

void MarkDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    if (!m_list.FullRowSelect() && index.column() == 0) {
        cell.rect = Label(option, index);
    }
    QStyledItemDelegate::paint(pPainter, cell, index);
    const int nSmallIcon = index.data(RowModel::kSmallIconRole).toInt();
    if (index.column() == 0 && nSmallIcon > platform::kFolderIcon) {
        initStyleOption(&cell, index);
        const QRect picture =
            StyleOf(cell).subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, cell.widget);
        PaintMark(*pPainter, picture, option.rect, nSmallIcon, Background(cell));
    }
}

} // namespace desktop

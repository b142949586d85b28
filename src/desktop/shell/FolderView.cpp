#include "FolderView.h"

#include "FolderModel.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>

namespace desktop {

FolderView::FolderView(FolderModel& model) : m_model(model)
{
    setModel(&model);
    setAccessibleName(QStringLiteral("Folders"));
    setHeaderHidden(true);
    setUniformRowHeights(true); // else each row of a large folder is measured
    // As wide as the rows in sight need, with a bar to scroll.
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(0);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &FolderView::LookIntoVisible);
}

void FolderView::keyPressEvent(QKeyEvent* pEvent)
{
    // The tree's own answer is to open all folders at any depth, which is to walk the whole disk.
    if (pEvent->key() == Qt::Key_Asterisk) {
        expand(currentIndex());
        return;
    }
    QTreeView::keyPressEvent(pEvent);
}

QItemSelectionModel::SelectionFlags FolderView::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* /*pEvent*/) const
{
    // Not even Ctrl takes the selection away: the folder that Add adds is the one that shows.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void FolderView::paintEvent(QPaintEvent* pEvent)
{
    QTreeView::paintEvent(pEvent);
    m_look.start(0);
}

/// Finds out which of the rows in sight can be opened, some of them at a time so that input comes first.
void FolderView::LookIntoVisible()
{
    constexpr qint64 nFrame = 16; // ms
    QElapsedTimer since;
    since.start();
    bool bLeaves = false;
    for (QModelIndex row = indexAt({0, 0}); row.isValid() && visualRect(row).top() < viewport()->height();
         row = indexBelow(row)) {
        if (since.elapsed() > nFrame) {
            m_look.start(0);
            break;
        }
        bLeaves |= m_model.LookInto(row);
    }
    if (bLeaves) {
        scheduleDelayedItemsLayout();
    }
}

} // namespace desktop

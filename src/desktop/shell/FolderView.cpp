// SPDX-License-Identifier: MIT
#include "FolderView.h"

#include "CanonicalPath.h"
#include "FolderModel.h"
#include "NamedPaths.h"

#include <QApplication>
#include <QClipboard>
#include <QDragMoveEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>

namespace desktop {
namespace {

/// What is dropped is only looked at: who drags a folder must not take it for moved.
void AcceptAsCopy(QDropEvent& event, bool bAccept)
{
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(bAccept && event.possibleActions().testFlag(Qt::CopyAction));
}

} // namespace

FolderView::FolderView(FolderModel& model) : m_model(model)
{
    setUniformRowHeights(true); // else each row of a large folder is measured
    setModel(&model);           // behind that: the toolkit's 6.8 shows no rows at first the other way round
    setAccessibleName(QStringLiteral("Folders"));
    setHeaderHidden(true);
    header()->setStretchLastSection(true);
    header()->setMinimumSectionSize(0);
    header()->setResizeContentsPrecision(0); // the rows in sight
    setAcceptDrops(true);
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, [this] {
        WidenForVisible();
        LookIntoVisible();
    });
    connect(this, &QTreeView::collapsed, this, &FolderView::Closed);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& folder) {
        if (!m_model.hasChildren(folder)) {
            scheduleDelayedItemsLayout(); // there is nothing to open, so its arrow goes
        }
    });
}

void FolderView::ShowFolder(const QModelIndex& folder)
{
    setCurrentIndex(folder);
    scrollTo(folder, PositionAtCenter);
}

void FolderView::Closed(const QModelIndex& folder)
{
    header()->setMinimumSectionSize(0);
    QModelIndex above = currentIndex();
    while (above.isValid() && above != folder) {
        above = above.parent();
    }
    if (above.isValid()) {
        setCurrentIndex(folder);
    }
}

void FolderView::keyPressEvent(QKeyEvent* pEvent)
{
    // The tree's own answer is to open all folders at any depth, which is to walk the whole disk.
    if (pEvent->key() == Qt::Key_Asterisk) {
        expand(currentIndex());
        return;
    }
    if (pEvent->matches(QKeySequence::Paste)) {
        const QMimeData* const pData = QApplication::clipboard()->mimeData();
        const QModelIndex folder = pData != nullptr ? FolderIn(*pData) : QModelIndex();
        if (folder.isValid()) {
            ShowFolder(folder);
        } else {
            QApplication::beep();
        }
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

void FolderView::dragEnterEvent(QDragEnterEvent* pEvent)
{
    AcceptAsCopy(*pEvent, FolderIn(*pEvent->mimeData()).isValid());
}

void FolderView::dragMoveEvent(QDragMoveEvent* pEvent)
{
    AcceptAsCopy(*pEvent, true);
}

void FolderView::dropEvent(QDropEvent* pEvent)
{
    const QModelIndex folder = FolderIn(*pEvent->mimeData());
    AcceptAsCopy(*pEvent, folder.isValid());
    if (folder.isValid()) {
        ShowFolder(folder);
        activateWindow();
        setFocus();
    }
}

/// The first folder that somebody else's data name; invalid if they name none.
QModelIndex FolderView::FolderIn(const QMimeData& named)
{
    for (const std::string& sPath : NamedPaths(named)) {
        const QModelIndex folder = m_model.Find(CanonicalPath(sPath));
        if (folder.isValid()) {
            return folder;
        }
    }
    return {};
}

/// As wide as the widest row that has been in sight needs, with a bar to scroll.
void FolderView::WidenForVisible()
{
    const int nNeeded = sizeHintForColumn(0);
    if (nNeeded > header()->minimumSectionSize()) {
        header()->setMinimumSectionSize(nNeeded);
    }
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

// SPDX-License-Identifier: MIT
#include "FolderTreeView.h"

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

/// A drop only selects the folder; the program that the folder is dragged from must not treat it as moved.
void AcceptAsCopy(QDropEvent& event, bool bAccept)
{
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(bAccept && event.possibleActions().testFlag(Qt::CopyAction));
}

} // namespace

FolderTreeView::FolderTreeView(FolderModel& model) : m_model(model)
{
    setUniformRowHeights(true); // otherwise each row of a large folder is measured
    setModel(&model);           // after that, or Qt 6.8 initially shows no rows
    setAccessibleName(QStringLiteral("Folders"));
    setHeaderHidden(true);
    header()->setStretchLastSection(true);
    header()->setMinimumSectionSize(0);
    header()->setResizeContentsPrecision(0); // only visible rows
    setAcceptDrops(true);
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, [this] {
        WidenForVisible();
        LookIntoVisible();
    });
    connect(this, &QTreeView::collapsed, this, &FolderTreeView::Closed);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& folder) {
        if (!m_model.hasChildren(folder)) {
            scheduleDelayedItemsLayout(); // removes the arrow of a folder without subfolders
        }
    });
}

void FolderTreeView::ShowFolder(const QModelIndex& folder)
{
    setCurrentIndex(folder);
    scrollTo(folder, PositionAtCenter);
}

void FolderTreeView::Closed(const QModelIndex& folder)
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

void FolderTreeView::keyPressEvent(QKeyEvent* pEvent)
{
    // The tree's default would expand all folders at any depth, which would read the whole disk.
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

QItemSelectionModel::SelectionFlags FolderTreeView::selectionCommand(const QModelIndex& index,
                                                                     const QEvent* /*pEvent*/) const
{
    // Not even Ctrl can clear the selection, so that Add always adds the folder shown as selected.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void FolderTreeView::paintEvent(QPaintEvent* pEvent)
{
    QTreeView::paintEvent(pEvent);
    m_look.start(0);
}

void FolderTreeView::dragEnterEvent(QDragEnterEvent* pEvent)
{
    AcceptAsCopy(*pEvent, FolderIn(*pEvent->mimeData()).isValid());
}

void FolderTreeView::dragMoveEvent(QDragMoveEvent* pEvent)
{
    AcceptAsCopy(*pEvent, true);
}

void FolderTreeView::dropEvent(QDropEvent* pEvent)
{
    const QModelIndex folder = FolderIn(*pEvent->mimeData());
    AcceptAsCopy(*pEvent, folder.isValid());
    if (folder.isValid()) {
        ShowFolder(folder);
        activateWindow();
        setFocus();
    }
}

/// The first folder named by data from another program; invalid if there is none.
QModelIndex FolderTreeView::FolderIn(const QMimeData& named)
{
    for (const std::string& sPath : NamedPaths(named)) {
        const QModelIndex folder = m_model.Find(CanonicalPath(sPath));
        if (folder.isValid()) {
            return folder;
        }
    }
    return {};
}

/// Widens the column for the widest row that has been visible so far, with a scroll bar.
void FolderTreeView::WidenForVisible()
{
    const int nNeeded = sizeHintForColumn(0);
    if (nNeeded > header()->minimumSectionSize()) {
        header()->setMinimumSectionSize(nNeeded);
    }
}

/// Checks which visible rows have subfolders, a few at a time so that input is processed first.
void FolderTreeView::LookIntoVisible()
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

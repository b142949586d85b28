// SPDX-License-Identifier: MIT
// Mouse and keyboard input of a list.

#include "ListViewWidget.h"
#include "ToolkitValues.h"
#include "Twips.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <utility>

namespace desktop {
namespace {

constexpr int kScrollInterval = 50;     // milliseconds
constexpr int kPixelsPerExtraStep = 16; // the further outside, the faster

tHeld Held(Qt::KeyboardModifiers modifiers)
{
    return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier)};
}

} // namespace

void ListViewWidget::TellMouse(const platform::MouseEvent& tell, const QMouseEvent& event) const
{
    if (tell) {
        const QPointF pos = viewport()->mapTo(this, event.position());
        tell(ButtonMask(event.button()), ShiftMask(event.modifiers()),
             static_cast<float>(pos.x()) * TwipsPerPixel(), static_cast<float>(pos.y()) * TwipsPerPixel());
    }
}

void ListViewWidget::mousePressEvent(QMouseEvent* pEvent)
{
    TellMouse(m_list.MouseDown, *pEvent);
    BringUpToDate();
    const QPoint pos = pEvent->position().toPoint();
    const auto row = RowUnder(pos);
    if (pEvent->button() == Qt::LeftButton) {
        m_pressed = pos;
        m_bDragBegun = false;
        m_picking.Press(row, LineAt(pos.y()), Held(pEvent->modifiers()));
    } else if (pEvent->button() == Qt::RightButton) {
        EndDrag();
        m_picking.PressRight(row, Held(pEvent->modifiers()));
    }
    BringUpToDate();
}

void ListViewWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (!pEvent->buttons().testFlag(Qt::LeftButton)) {
        EndDrag();
    }
    const QPoint pos = pEvent->position().toPoint();
    m_bDragBegun |= (pos - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!m_picking.Dragging() || !m_bDragBegun) {
        return;
    }
    m_nDragY = pos.y();
    if (m_nDragY >= 0 && m_nDragY < viewport()->height()) {
        m_scrollTimer.stop();
    } else if (!m_scrollTimer.isActive()) {
        m_scrollTimer.start(kScrollInterval, this);
    }
    DragTo(m_nDragY);
}

void ListViewWidget::timerEvent(QTimerEvent* pEvent)
{
    if (pEvent->timerId() != m_scrollTimer.timerId()) {
        QTreeView::timerEvent(pEvent);
        return;
    }
    const int nBeyond = m_nDragY < 0 ? m_nDragY : m_nDragY - viewport()->height() + 1;
    const int nStep = verticalScrollBar()->singleStep();
    verticalScrollBar()->setValue(verticalScrollBar()->value() + nStep * (nBeyond < 0 ? -1 : 1) +
                                  nBeyond / kPixelsPerExtraStep);
    DragTo(m_nDragY);
}

void ListViewWidget::DragTo(int y)
{
    BringUpToDate();
    m_picking.DragTo(LineAt(y));
    BringUpToDate();
}

void ListViewWidget::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton) {
        EndDrag();
    }
    TellMouse(m_list.MouseUp, *pEvent);
}

void ListViewWidget::EndDrag()
{
    m_scrollTimer.stop();
    m_picking.Release();
}

void ListViewWidget::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton) {
        mousePressEvent(pEvent);
        return;
    }
    if (RowUnder(pEvent->position().toPoint()) == RowUnder(m_pressed)) {
        TellMouse(m_list.MouseDown, *pEvent);
    } else {
        // The second press was on another row, or on none.
        mousePressEvent(pEvent);
        EndDrag();
    }
    if (m_list.DblClick) {
        m_list.DblClick();
    }
}

void ListViewWidget::contextMenuEvent(QContextMenuEvent* pEvent)
{
    // The context menu of the mouse opens on release of the button.
    if (pEvent->reason() != QContextMenuEvent::Keyboard || !m_list.MenuKey) {
        QTreeView::contextMenuEvent(pEvent);
        return;
    }
    BringUpToDate();
    m_list.MenuKey();
}

void ListViewWidget::keyPressEvent(QKeyEvent* pEvent)
{
    // The program handles Select All, on release of the keys.
    if (pEvent->matches(QKeySequence::SelectAll)) {
        pEvent->ignore();
        return;
    }
    // The toolkit knows the menu key, but not the combination used on keyboards without one.
    if (pEvent->key() == Qt::Key_F10 && pEvent->modifiers() == Qt::ShiftModifier && m_list.MenuKey) {
        BringUpToDate();
        m_list.MenuKey();
        return;
    }
    constexpr std::array<std::pair<int, CursorAction>, 6> kMoves = {{
        {Qt::Key_Up, MoveUp},
        {Qt::Key_Down, MoveDown},
        {Qt::Key_Home, MoveHome},
        {Qt::Key_End, MoveEnd},
        {Qt::Key_PageUp, MovePageUp},
        {Qt::Key_PageDown, MovePageDown},
    }};
    BringUpToDate();
    const tHeld held = Held(pEvent->modifiers());
    const auto* const pMove = std::find_if(kMoves.begin(), kMoves.end(),
                                           [&](const auto& each) { return each.first == pEvent->key(); });
    if (pMove != kMoves.end()) {
        const QModelIndex index = moveCursor(pMove->second, pEvent->modifiers());
        if (index.isValid()) {
            m_picking.MoveTo(static_cast<std::size_t>(index.row()), held);
            m_rowToShow = static_cast<std::size_t>(index.row());
        }
    } else if (pEvent->key() == Qt::Key_Space && pEvent->modifiers() == Qt::NoModifier &&
               m_typeAhead.GoesOn()) {
        keyboardSearch(pEvent->text());
    } else if (pEvent->key() == Qt::Key_Space) {
        m_picking.PickCurrent(held);
    } else {
        QTreeView::keyPressEvent(pEvent);
    }
    BringUpToDate();
}

void ListViewWidget::keyReleaseEvent(QKeyEvent* pEvent)
{
    const int nKeyCode = VirtualKey(*pEvent);
    if (nKeyCode != 0 && !pEvent->isAutoRepeat() && m_list.KeyUp) {
        m_list.KeyUp(nKeyCode, ShiftMaskAfter(*pEvent));
    }
}

void ListViewWidget::keyboardSearch(const QString& sTyped)
{
    BringUpToDate();
    if (const auto row = m_typeAhead.Find(sTyped)) {
        m_picking.MoveTo(*row, {});
        m_rowToShow = row;
    }
    BringUpToDate();
}

} // namespace desktop

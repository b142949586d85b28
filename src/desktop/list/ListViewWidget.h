// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"
#include "MarkDelegate.h"
#include "Observable.h"
#include "RowModel.h"
#include "RowPicking.h"
#include "RowSelection.h"
#include "SpokenRows.h"
#include "TypeAhead.h"
#include "Widgets.h"

#include <QBasicTimer>
#include <QTreeView>

#include <cstddef>
#include <optional>

namespace desktop {

/// Shows a list view. The list holds the state; the widget only displays it. Mouse and keyboard input changes
/// the list, and its notifications are handled together at the next paint, so that for a hidden list they
/// cost only a flag for each row that is added or changed. Position, visibility and focus are managed by the
/// creator of the widget.
class ListViewWidget final : public SpokenRows<QTreeView>,
                             public platform::ListViewObserver,
                             public platform::Observer
{
public:
    /// The list must outlive the widget. The widget has to be the only row observer of the list and the only
    /// observer of its columns.
    ListViewWidget(platform::ListView& list, QWidget* pParent);
    ListViewWidget(const ListViewWidget&) = delete;
    ListViewWidget& operator=(const ListViewWidget&) = delete;
    ~ListViewWidget() override;

    /// Stops showing the list; afterwards the list may be destroyed before the widget.
    void LetGo();

    void RowAdded(std::size_t /*nRow*/) override { MarkStale(); }
    void RowChanged(std::size_t nRow) override;
    void RowRemoved(std::size_t nRow) override;
    void RowsCleared() override;
    void RowsSorted() override;
    void SelectionChanged() override { MarkStale(); }
    void ShowRow(std::size_t nRow) override;
    std::optional<std::size_t> RowAt(float x, float y) override;

    /// The width of a column has changed.
    void StateChanged(platform::Observable& /*control*/) override { ApplyColumnWidths(); }

    void keyboardSearch(const QString& sTyped) override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;
    void timerEvent(QTimerEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void keyReleaseEvent(QKeyEvent* pEvent) override;
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;

private:
    void SetUpHeader();
    void ApplyColumnWidths();
    void ApplyColors();

    void MarkStale();
    void BringUpToDate();
    void MirrorRowsInSight();

    [[nodiscard]] std::optional<std::size_t> RowUnder(const QPoint& pos) const;
    [[nodiscard]] std::size_t LineAt(int y) const;
    void DragTo(int y);
    void EndDrag();
    void ForgetRows();
    void TellMouse(const platform::MouseEvent& tell, const QMouseEvent& event) const;

    platform::ListView& m_list;
    RowModel m_model;
    RowSelection m_selection;
    RowPicking m_picking;
    TypeAhead m_typeAhead;
    MarkDelegate m_delegate;

    bool m_bStale = true;                   ///< there are notifications that are not shown yet
    std::optional<std::size_t> m_rowToShow; ///< scroll to this row at the next paint
    bool m_bSetsColumns = false;
    bool m_bSetsColors = false;
    QPoint m_pressed;          ///< where the left button was pressed
    bool m_bDragBegun = false; ///< the pointer has moved away from there
    QBasicTimer m_scrollTimer; ///< runs while a drag is held above or below the rows, to scroll
    int m_nDragY = 0;
};

} // namespace desktop

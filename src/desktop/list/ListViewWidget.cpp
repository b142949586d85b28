// SPDX-License-Identifier: MIT
#include "ListViewWidget.h"

#include "ListColors.h"
#include "SpokenHeader.h"
#include "Twips.h"

#include <QApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace desktop {

ListViewWidget::ListViewWidget(platform::ListView& list, QWidget* pParent)
    : SpokenRows(pParent), m_list(list), m_model(list), m_selection(list, m_model), m_picking(list),
      m_typeAhead(list), m_delegate(list)
{
    setModel(&m_model);
    QItemSelectionModel* const pUnused = selectionModel();
    setSelectionModel(&m_selection);
    delete pUnused;
    setItemDelegate(&m_delegate);
    setSelectionMode(m_list.MultiSelect ? ExtendedSelection : SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAutoScroll(false);
    SetUpHeader();
    ApplyColors();
    m_list.ObserveRows(this);
}

ListViewWidget::~ListViewWidget()
{
    LetGo();
}

void ListViewWidget::LetGo()
{
    if (model() == nullptr) {
        return;
    }
    m_scrollTimer.stop();
    m_list.ObserveRows(nullptr);
    for (std::size_t n = 1; n <= m_list.ColumnCount(); ++n) {
        m_list.ColumnHeaders(n).Observe(nullptr);
    }
    setModel(nullptr);
}

void ListViewWidget::SetUpHeader()
{
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setHighlightSections(false);
    header()->setMinimumSectionSize(0);
    GivePressableHeader(*this);
    connect(header(), &QHeaderView::sectionClicked, this, [this] {
        if (m_list.ColumnClick) {
            m_list.ColumnClick();
        }
    });
    connect(header(), &QHeaderView::sectionResized, this, [this](int nSection, int, int nPixels) {
        if (!m_bSetsColumns) {
            m_list.ColumnHeaders(static_cast<std::size_t>(nSection) + 1).SetWidth(Twips(nPixels));
        }
    });
    ApplyColumnWidths();
    for (std::size_t n = 1; n <= m_list.ColumnCount(); ++n) {
        m_list.ColumnHeaders(n).Observe(this);
    }
}

void ListViewWidget::ApplyColumnWidths()
{
    const QScopedValueRollback setsColumns(m_bSetsColumns, true);
    for (int n = 0; n < m_model.columnCount(); ++n) {
        header()->resizeSection(n, Pixels(m_list.ColumnHeaders(static_cast<std::size_t>(n) + 1).Width()));
    }
}

void ListViewWidget::ApplyColors()
{
    const QScopedValueRollback setsColors(m_bSetsColors, true);
    setPalette(ListColors(QApplication::palette(this), m_list.BackColor));
}

void ListViewWidget::RowChanged(std::size_t nRow)
{
    m_model.RowChanged(nRow);
    MarkStale();
}

void ListViewWidget::RowRemoved(std::size_t nRow)
{
    MarkStale();
    ForgetRows();
    const QScopedValueRollback follows(m_selection.bFollows, true);
    m_model.RowRemoved(nRow);
}

void ListViewWidget::RowsCleared()
{
    MarkStale();
    ForgetRows();
    m_rowToShow.reset();
    const QScopedValueRollback follows(m_selection.bFollows, true);
    m_model.RowsCleared();
}

void ListViewWidget::RowsSorted()
{
    MarkStale();
    ForgetRows();
    const QScopedValueRollback follows(m_selection.bFollows, true);
    m_model.RowsSorted();
}

/// Ends mouse and keyboard actions that refer to the previous rows.
void ListViewWidget::ForgetRows()
{
    EndDrag();
    m_picking.Forget();
}

void ListViewWidget::ShowRow(std::size_t nRow)
{
    m_rowToShow = nRow;
    MarkStale();
}

std::optional<std::size_t> ListViewWidget::RowAt(float x, float y)
{
    BringUpToDate();
    return RowUnder(viewport()->mapFrom(this, QPoint(Pixels(x), Pixels(y))));
}

void ListViewWidget::MarkStale()
{
    if (!m_bStale) {
        m_bStale = true;
        // A hidden list is not painted and stays stale.
        viewport()->update();
    }
}

/// Applies the pending notifications of the list.
void ListViewWidget::BringUpToDate()
{
    if (!std::exchange(m_bStale, false)) {
        return;
    }
    const QScopedValueRollback follows(m_selection.bFollows, true);
    setSelectionBehavior(m_list.FullRowSelect() ? SelectRows : SelectItems);
    setAllColumnsShowFocus(m_list.FullRowSelect());
    m_model.TakeIn();
    const auto current = m_list.SelectedItem();
    const int nCurrent = current ? static_cast<int>(current->Index()) - 1 : -1;
    if (currentIndex().row() != nCurrent || currentIndex().column() > 0) {
        m_selection.setCurrentIndex(m_model.index(nCurrent, 0), QItemSelectionModel::NoUpdate);
    }
    if (const auto row = std::exchange(m_rowToShow, std::nullopt)) {
        scrollTo(m_model.index(static_cast<int>(*row), 0));
    }
    MirrorRowsInSight();
}

void ListViewWidget::MirrorRowsInSight()
{
    const QModelIndex top = indexAt(QPoint(columnViewportPosition(0), 0));
    const int nRowHeight = std::max(1, visualRect(top).height());
    const int nLast = top.row() + viewport()->height() / nRowHeight + 1;
    m_selection.Mirror(std::max(0, top.row()), top.isValid() ? std::min(nLast, m_model.rowCount() - 1) : -1);
}

void ListViewWidget::paintEvent(QPaintEvent* pEvent)
{
    BringUpToDate();
    QTreeView::paintEvent(pEvent);
}

void ListViewWidget::resizeEvent(QResizeEvent* pEvent)
{
    QTreeView::resizeEvent(pEvent);
    MarkStale();
}

void ListViewWidget::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    if (!m_bStale) {
        MirrorRowsInSight();
    }
}

void ListViewWidget::changeEvent(QEvent* pEvent)
{
    QTreeView::changeEvent(pEvent);
    if (pEvent->type() == QEvent::PaletteChange && !m_bSetsColors) {
        ApplyColors();
    }
}

void ListViewWidget::focusInEvent(QFocusEvent* pEvent)
{
    // A view that gets the focus without a current row would choose one itself.
    BringUpToDate();
    SpokenRows::focusInEvent(pEvent);
}

QRegion ListViewWidget::visualRegionForSelection(const QItemSelection& /*selection*/) const
{
    // Determining the positions of the rows costs more than painting them all.
    return viewport()->rect();
}

/// The row that reacts to the mouse at a point of the viewport.
std::optional<std::size_t> ListViewWidget::RowUnder(const QPoint& pos) const
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid()) {
        return std::nullopt;
    }
    if (!m_list.FullRowSelect()) {
        QStyleOptionViewItem cell;
        initViewItemOption(&cell);
        cell.rect = visualRect(index);
        if (index.column() > 0 || !m_delegate.Label(cell, index).contains(pos)) {
            return std::nullopt;
        }
    }
    return static_cast<std::size_t>(index.row());
}

/// The row at a vertical position in the viewport, or the number of rows below the last one.
std::size_t ListViewWidget::LineAt(int y) const
{
    const int nInside = std::clamp(y, 0, std::max(0, viewport()->height() - 1));
    const QModelIndex index = indexAt(QPoint(columnViewportPosition(0), nInside));
    return index.isValid() ? static_cast<std::size_t>(index.row()) : m_list.ListItems.Count();
}

} // namespace desktop

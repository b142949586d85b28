// SPDX-License-Identifier: MIT
#pragma once

#include "SpokenRows.h"

#include <QTimer>
#include <QTreeView>

class QMimeData;

namespace desktop {

class FolderModel;

/// A view of a folder tree with a single selection, which is always visible: collapsing a parent of the
/// selected folder selects the parent. Pasting a path or dropping a folder selects it if it is in the tree.
class FolderTreeView final : public SpokenRows<QTreeView>
{
public:
    explicit FolderTreeView(FolderModel& model);

    /// Selects a folder and scrolls to it.
    void ShowFolder(const QModelIndex& folder);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dragMoveEvent(QDragMoveEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* pEvent) const override;

private:
    void Closed(const QModelIndex& folder);
    void LookIntoVisible();
    void WidenForVisible();
    [[nodiscard]] QModelIndex FolderIn(const QMimeData& named);

    FolderModel& m_model;
    QTimer m_look; ///< runs while visible rows are to be checked for subfolders
};

} // namespace desktop

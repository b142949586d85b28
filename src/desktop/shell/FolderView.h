// SPDX-License-Identifier: MIT
#pragma once

#include "SpokenRows.h"

#include <QTimer>
#include <QTreeView>

class QMimeData;

namespace desktop {

class FolderModel;

/// Shows a tree of folders, of which one is selected: one that can be seen, so a folder that is closed over
/// the selected one becomes it. A path that is pasted and a folder that is dropped are selected where the
/// tree has them.
class FolderView final : public SpokenRows<QTreeView>
{
public:
    explicit FolderView(FolderModel& model);

    /// Selects a folder and brings it into sight.
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
    QTimer m_look; ///< runs when the rows in sight are to be looked into
};

} // namespace desktop

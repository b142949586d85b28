#pragma once

#include "SpokenRows.h"

#include <QTimer>
#include <QTreeView>

namespace desktop {

class FolderModel;

/// Shows a tree of folders, of which one is selected.
class FolderView final : public SpokenRows<QTreeView>
{
public:
    explicit FolderView(FolderModel& model);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* pEvent) const override;

private:
    void LookIntoVisible();

    FolderModel& m_model;
    QTimer m_look; ///< runs when the rows in sight are to be looked into
};

} // namespace desktop

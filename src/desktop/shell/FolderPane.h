// SPDX-License-Identifier: MIT
#pragma once

#include "FolderModel.h"
#include "FolderTreeView.h"

#include <QWidget>
#include <string>

class QGridLayout;
class QLayout;
class QPushButton;

namespace desktop {

class PathLabel;

/// A folder tree for dialogs, with the path of the selected folder below it and a way to create a folder. One
/// folder is always selected, initially the home folder.
class FolderPane final : public QWidget
{
public:
    FolderPane();

    /// The path of the selected folder, exact bytes, without a trailing separator (except for the root).
    [[nodiscard]] std::string Folder() const
    {
        return m_model.Path(FolderModel::Item(m_pView->currentIndex()));
    }

    /// Selects the folder with that path, or its nearest existing parent, and scrolls to it. Does nothing if
    /// the path is not absolute.
    void Select(const std::string& sPath);

    /// Places a widget next to the tree.
    void ShowBeside(QWidget& widget);

    [[nodiscard]] FolderTreeView& View() { return *m_pView; }

    /// The bottom row of a dialog with the pane: the button that asks for a name and creates a folder in the
    /// selected one, with a message on failure, and `buttons`.
    QLayout* BottomRow(QWidget& buttons);

private:
    void MakeFolder();

    QGridLayout* m_pLayout;
    FolderModel m_model;
    FolderTreeView* m_pView;
    PathLabel* m_pPath;
    QPushButton* m_pNewFolder; ///< in the bottom row
};

} // namespace desktop

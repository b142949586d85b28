// SPDX-License-Identifier: MIT
#pragma once

#include "FolderModel.h"
#include "FolderView.h"

#include <QWidget>
#include <string>

class QGridLayout;
class QPushButton;

namespace desktop {

class PathLabel;

/// The tree of folders as a question for a folder shows it: with the path of the selected one below, and a
/// way to make another one in it. One folder is always selected; at first the home folder.
class FolderPane final : public QWidget
{
public:
    FolderPane();

    /// The path of the selected folder, exact bytes, without a separator at the end but for the root's.
    [[nodiscard]] std::string Folder() const;

    /// Selects the folder of that path and shows it, or the nearest one above it that there is. Nothing
    /// happens for what is no full path.
    void Select(const std::string& sPath);

    /// Gives a widget the room beside the tree.
    void ShowBeside(QWidget& widget);

    [[nodiscard]] FolderView& View() { return *m_pView; }

    /// Asks for a name and makes the folder in the selected one. Says why if that cannot be done.
    QPushButton& NewFolderButton() { return *m_pNewFolder; }

private:
    void MakeFolder();

    QGridLayout* m_pLayout;
    FolderModel m_model;
    FolderView* m_pView;
    PathLabel* m_pPath;
    QPushButton* m_pNewFolder; ///< for the window that shows the pane to place
};

} // namespace desktop

// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"
#include "FolderPane.h"
#include "ShellDialogs.h"

#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QListWidget;

namespace desktop {

class NoticeLabel;

/// The modal dialog for a file to write to: a folder, and a name in it. It stays open until the choice can be
/// written to or the user cancels. The path consists of the folder's exact bytes and the name as typed.
class SaveChooser final : public DialogWindow
{
public:
    /// `request` must outlive the dialog.
    explicit SaveChooser(const platform::OPENFILENAME& request);

    /// Shows the dialog; returns the full path chosen, or an empty text.
    std::string Choose();

    void accept() override;

private:
    bool GoInto(const std::string& sPath);
    void ListFiles();
    void Say(const QString& sFault);

    const platform::OPENFILENAME& m_request;
    std::vector<std::string> m_patterns; ///< one for each offered file type
    FolderPane* m_pPane;
    QListWidget* m_pFiles;
    QLineEdit* m_pName;
    QComboBox* m_pKind;
    NoticeLabel* m_pFault;
    std::string m_sChosen;
};

} // namespace desktop

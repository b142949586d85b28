// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QString>

namespace desktop {

/// A yes/no question.
struct tQuestion {
    QString sName; ///< the object name of the box; its buttons are "yes" and "no"
    QString sTitle;
    QString sText;           ///< plain text, may contain any file name
    QString sYes;            ///< the label of the yes button
    bool bYesAtOnce = false; ///< Enter means yes; otherwise no, which Esc always means
};

/// Asks with `pOwner` as owner. True for yes.
bool AskYesNo(QWidget* pOwner, const tQuestion& question);

/// Shows an error in a box with that object name and the button "ok"; returns when it is closed.
void SayFault(QWidget* pOwner, const QString& sName, const QString& sText,
              QMessageBox::Icon icon = QMessageBox::Warning);

} // namespace desktop

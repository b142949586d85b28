// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace desktop {

/// A question that is answered with yes or no.
struct tQuestion {
    QString sName; ///< the box's object name; its buttons are "yes" and "no"
    QString sTitle;
    QString sText;           ///< plain text, which may hold any name
    QString sYes;            ///< what the button says that means yes
    bool bYesAtOnce = false; ///< Enter says yes; else it says no, as Esc does in any case
};

/// Asks over a window. True for yes.
bool AskYesNo(QWidget* pOwner, const tQuestion& question);

/// Says something that went wrong over a window, in a box of that object name with the button "ok"; returns
/// when it has been read.
void SayFault(QWidget* pOwner, const QString& sName, const QString& sText);

} // namespace desktop

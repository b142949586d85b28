// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

namespace desktop {

/// The window over which a window for `hwnd` belongs: the one that shows it, else the active one, else null.
QWidget* OwnerOf(platform::WindowHandle hwnd);

/// What the shell's windows have in common. Such a window takes input also while its owner's form is
/// disabled.
class ShellDialog : public QDialog
{
public:
    /// `sName` is the object's name, by which tests find the window; `sTitle` may hold any character.
    ShellDialog(QWidget* pOwner, const QString& sName, const QString& sTitle);

    /// Shows the window until it is answered, with the usual mouse pointer also in the midst of work. True if
    /// it was accepted.
    bool Ask();

protected:
    /// Gives the window the size `wanted`, in logical pixels, or what the screen has room for, but no less
    /// than its contents need.
    void SizeFor(QSize wanted);

    /// A button of this role in `buttons`. Its name is the object's name.
    static QPushButton* AddButton(QDialogButtonBox& buttons, const QString& sText,
                                  QDialogButtonBox::ButtonRole role, const QString& sName);
};

/// A text that may hold any name, as a window's title, in which Qt would otherwise look for its own mark.
QString AsTitle(QString sText);

} // namespace desktop

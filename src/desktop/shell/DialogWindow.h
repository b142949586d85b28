// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <functional>

namespace desktop {

/// The owner of a window for `hwnd`: the window that shows it, otherwise the active window, otherwise null.
QWidget* OwnerOf(platform::WindowHandle hwnd);

/// Base class of the shell's windows. They accept input even if their owner's form is disabled.
class DialogWindow : public QDialog
{
public:
    /// `sName` is the object name, by which tests find the window; `sTitle` may contain any character.
    DialogWindow(QWidget* pOwner, const QString& sName, const QString& sTitle);

    /// Shows the window until it is answered, with the normal mouse pointer even during an operation. True if
    /// it was accepted.
    bool Ask();

protected:
    /// Resizes the window to `wanted`, in logical pixels, limited to the screen, but at least to what its
    /// contents need.
    void SizeFor(QSize wanted);

    /// Adds a button with this role to `buttons`; `sName` is its object name. `press`, if any, is called when
    /// it is pressed.
    QPushButton* AddButton(QDialogButtonBox& buttons, const QString& sText, QDialogButtonBox::ButtonRole role,
                           const QString& sName, const std::function<void()>& press = {});

    /// A text with word wrap that may contain any name; `sName` is its object name.
    static QLabel* Text(const QString& sText, const QString& sName = {});
};

} // namespace desktop

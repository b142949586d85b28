// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

namespace platform {

class Form;
class ListView;
class MenuItem;

/// Displays forms and menus.
class WindowManager
{
public:
    virtual ~WindowManager() = default;

    /// Shows a loaded form. For a modal one, returns when it has been closed with TakeDownForm.
    virtual void ShowForm(Form& form, bool bModal, Form* pOwner) = 0;

    /// Closes the window of a form.
    virtual void TakeDownForm(Form& form) = 0;

    /// Repaints at once what has changed in a form.
    virtual void RefreshForm(Form& form) = 0;

    /// Shows the items of a submenu at the mouse, or at the current row of `pList` if that is given. Returns
    /// when an item was chosen or the menu was dismissed.
    virtual void PopupMenu(MenuItem& menu, const ListView* pList) = 0;

    /// Brings a form to the front and gives it the keyboard focus.
    virtual void SetForegroundWindow(WindowHandle hWnd) = 0;

    /// Suspends painting in a window until it is called with null, which paints what has changed.
    virtual void LockWindowUpdate(WindowHandle hWnd) = 0;
};

} // namespace platform

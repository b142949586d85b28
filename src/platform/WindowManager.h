#pragma once

#include "Control.h"

#include <string_view>

namespace platform {

class Form;
class MenuItem;

/// Who brings forms to the screen.
class WindowManager
{
public:
    virtual ~WindowManager() = default;

    /// Shows a loaded form; a modal one until it has been taken down.
    virtual void ShowForm(Form& form, bool bModal, Form* pOwner) = 0;
    virtual void TakeDownForm(Form& form) = 0;
    virtual void RefreshForm(Form& form) = 0;

    /// Shows the items of a submenu at the mouse, and returns when one was chosen or none.
    virtual void PopupMenu(MenuItem& menu) = 0;

    /// Brings a form to the front and gives it the keyboard.
    virtual void SetForegroundWindow(WindowHandle hWnd) = 0;

    /// Stops all drawing in a window until it is called with null, which draws what has changed.
    virtual void LockWindowUpdate(WindowHandle hWnd) = 0;
};

// The window functions of the system. A null handle, like a window that does not know what it is asked, gives
// 0 or null and changes nothing.

/// Makes the common control classes available. They always are.
void InitCommonControls();

/// The first window of class `sClass` that `hParent` holds, behind `hChildAfter` if there is one.
WindowHandle FindWindowExA(WindowHandle hParent, WindowHandle hChildAfter, std::string_view sClass);

long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, long lParam);

/// Makes a visible window of class `sClass` inside `hParent`, in pixels; null for a class that it does not
/// know. The window is destroyed by DestroyWindow.
WindowHandle CreateWindowExA(std::string_view sClass, int x, int y, int nWidth, int nHeight,
                             WindowHandle hParent);

/// Moves and resizes a window inside what holds it, in pixels.
void MoveWindow(WindowHandle hWnd, int x, int y, int nWidth, int nHeight);

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
void ShowWindow(WindowHandle hWnd, int nCommand);

/// Destroys a window that CreateWindowExA made.
void DestroyWindow(WindowHandle hWnd);

void SetForegroundWindow(WindowHandle hWnd);
void LockWindowUpdate(WindowHandle hWnd);

} // namespace platform

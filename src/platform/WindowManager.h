// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

class Form;
class ListView;
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

    /// Shows the items of a submenu, and returns when one was chosen or none: at the mouse, or at the current
    /// row of `pList` if that is given.
    virtual void PopupMenu(MenuItem& menu, const ListView* pList) = 0;

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

inline constexpr unsigned WM_DESTROY = 2;
inline constexpr unsigned WM_MOVE = 3;
inline constexpr unsigned WM_CLOSE = 16;
long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, long lParam);

/// The same for a message that carries a text.
long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, const std::string& sText);

/// Puts `New_Procedure` in the place of the procedure that carries out a window's messages, and returns that
/// one, for CallWindowProcA.
inline constexpr int GWL_WNDPROC = -4;
WindowProcedure SetWindowLongA(WindowHandle hWnd, int nIndex, WindowProcedure New_Procedure);
long CallWindowProcA(WindowProcedure lpPrevWndFunc, WindowHandle hWnd, unsigned uMsg, long wParam,
                     long lParam);

/// The first of the windows that `hWnd` holds, or the one that comes behind it in what holds it.
inline constexpr unsigned GW_HWNDNEXT = 2;
inline constexpr unsigned GW_CHILD = 5;
WindowHandle GetWindow(WindowHandle hWnd, unsigned uCmd);

/// The name of a window's class, cut to what goes into a buffer of `nMaxCount` characters with its NUL.
std::string GetClassNameA(WindowHandle hWnd, std::size_t nMaxCount);

/// Moves a window into another one.
void SetParent(WindowHandle hWndChild, WindowHandle hWndNewParent);

/// The window behind all others.
WindowHandle GetDesktopWindow();

/// Makes a visible window of class `sClass` inside `hParent`, in pixels; null for a class that it does not
/// know. The window is destroyed by DestroyWindow.
WindowHandle CreateWindowExA(std::string_view sClass, int x, int y, int nWidth, int nHeight,
                             WindowHandle hParent);

/// Moves and resizes a window inside what holds it, in pixels, and tells it by WM_MOVE.
void MoveWindow(WindowHandle hWnd, int x, int y, int nWidth, int nHeight);

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
void ShowWindow(WindowHandle hWnd, int nCommand);

/// Destroys a window: one that CreateWindowExA made is gone at once, another one is told by WM_DESTROY.
void DestroyWindow(WindowHandle hWnd);

void SetForegroundWindow(WindowHandle hWnd);
void LockWindowUpdate(WindowHandle hWnd);

} // namespace platform

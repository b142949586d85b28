// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// The window functions of the native API. With a null handle, or a window that does not support the request,
// they return 0 or null and change nothing.

/// Makes the common control classes available. Does nothing, since they always are.
void InitCommonControls();

/// The first child of `hParent` with class `sClass`, after `hChildAfter` if that is given.
WindowHandle FindWindowExA(WindowHandle hParent, WindowHandle hChildAfter, std::string_view sClass);

/// Sends a message to the procedure of a window and returns its result.
inline constexpr unsigned WM_DESTROY = 2;
inline constexpr unsigned WM_MOVE = 3;
inline constexpr unsigned WM_CLOSE = 16;
long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, long lParam);

/// The same for a message with a text.
long SendMessageA(WindowHandle hWnd, unsigned nMessage, long wParam, const std::string& sText);

/// Replaces the window procedure with `New_Procedure` and returns the old one, for use with CallWindowProcA.
inline constexpr int GWL_WNDPROC = -4;
WindowProcedure SetWindowLongA(WindowHandle hWnd, int nIndex, WindowProcedure New_Procedure);
long CallWindowProcA(WindowProcedure lpPrevWndFunc, WindowHandle hWnd, unsigned uMsg, long wParam,
                     long lParam);

/// GW_CHILD: the first child of `hWnd`. GW_HWNDNEXT: the next sibling.
inline constexpr unsigned GW_HWNDNEXT = 2;
inline constexpr unsigned GW_CHILD = 5;
WindowHandle GetWindow(WindowHandle hWnd, unsigned uCmd);

/// The class name of a window, truncated to a buffer of `nMaxCount` characters including the NUL.
std::string GetClassNameA(WindowHandle hWnd, std::size_t nMaxCount);

/// Moves a window into another parent.
void SetParent(WindowHandle hWndChild, WindowHandle hWndNewParent);

/// The desktop window, which is behind all others.
WindowHandle GetDesktopWindow();

/// Creates a visible window of class `sClass` inside `hParent`, with position and size in pixels; null for an
/// unknown class. The window must be destroyed with DestroyWindow.
WindowHandle CreateWindowExA(std::string_view sClass, int x, int y, int nWidth, int nHeight,
                             WindowHandle hParent);

/// Moves and resizes a window within its parent, in pixels, and sends it WM_MOVE.
void MoveWindow(WindowHandle hWnd, int x, int y, int nWidth, int nHeight);

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
void ShowWindow(WindowHandle hWnd, int nCommand);

/// Destroys a window: at once if it was made by CreateWindowExA, otherwise by sending it WM_DESTROY.
void DestroyWindow(WindowHandle hWnd);

/// Pass the call to the window manager, which documents them.
void SetForegroundWindow(WindowHandle hWnd);
void LockWindowUpdate(WindowHandle hWnd);

} // namespace platform

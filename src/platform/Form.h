// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "NativeWindow.h"

#include <functional>
#include <string>
#include <vector>

namespace platform {

class CommandButton;
class MenuItem;

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

/// The fixed appearance of a form.
struct tFormDesign {
    std::string sCaption;
    float ClientWidth = 0; ///< of the client area, in twips
    float ClientHeight = 0;
    bool bSizable = false;   ///< otherwise a fixed dialog frame without minimise and maximise buttons
    bool bControlBox = true; ///< false: neither the frame nor a key closes the form
    bool bShowInTaskbar = false;
    bool bCenterOnScreen = false; ///< otherwise on the owner
};

/// A window. While it is disabled it takes no input, and none of its controls can get the focus.
class Form : public NativeWindow
{
public:
    std::function<void()> Load;   ///< when the form is loaded, before it is shown
    std::function<void()> Unload; ///< before its window is closed
    std::function<void()> Resize; ///< when the client area changes size, including the first time

    tFormDesign design;

    /// The controls in tab order; not owned.
    std::vector<Control*> controls;

    /// The menus of the menu bar; not owned. Empty for a form without one.
    std::vector<MenuItem*> menus;

    /// Pressed by Enter and Esc, or null.
    CommandButton* DefaultButton = nullptr;
    CommandButton* CancelButton = nullptr;

    /// The size of the client area, in twips.
    [[nodiscard]] float ScaleWidth() const { return m_scaleWidth; }
    [[nodiscard]] float ScaleHeight() const { return m_scaleHeight; }
    [[nodiscard]] platform::WindowState WindowState() const { return m_windowState; }

    /// Called by the display code to report size and state of the window; runs `Resize`.
    void TellSize(float width, float height, platform::WindowState state);

    [[nodiscard]] bool Loaded() const { return m_bLoaded; }

    /// Loads the form if needed and shows it, owned by `pOwner` if that is not null. A modal form returns
    /// only when it has been unloaded.
    void Show(bool bModal = false, Form* pOwner = nullptr);

    /// Repaints what has changed at once.
    void Refresh();

    /// Runs `Unload` and closes the window. Does nothing if the form is not loaded.
    void UnloadForm();

    /// The control that has the focus, or null.
    [[nodiscard]] Control* ActiveControl() const { return m_pActive; }

    /// Gives `control` the focus; false if the form is disabled.
    bool SetFocus(Control& control);

private:
    Control* m_pActive = nullptr;
    float m_scaleWidth = 0;
    float m_scaleHeight = 0;
    platform::WindowState m_windowState = platform::WindowState::Normal;
    bool m_bLoaded = false;
};

} // namespace platform

// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <functional>
#include <string>
#include <vector>

namespace platform {

class CommandButton;
class MenuItem;

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

/// How a form presents itself; fixed from its design on.
struct tFormDesign {
    std::string sCaption;
    float ClientWidth = 0; ///< of the inside, in twips
    float ClientHeight = 0;
    bool bSizable = false;   ///< else a fixed dialog frame without minimise and maximise buttons
    bool bControlBox = true; ///< false: nothing in the frame closes the form, and no key does
    bool bShowInTaskbar = false;
    bool bCenterOnScreen = false; ///< else on the owner
};

/// A window. While it is not enabled it takes no input and no control of it can get the focus.
class Form : public Control
{
public:
    std::function<void()> Load;   ///< when the form is loaded, before it shows
    std::function<void()> Unload; ///< before its window goes
    std::function<void()> Resize; ///< when its inside has got a size, the first one included

    tFormDesign design;

    /// The controls in tab order; not owned.
    std::vector<Control*> controls;

    /// The menus of the menu bar; not owned. Empty for a form without one.
    std::vector<MenuItem*> menus;

    /// What Enter and Esc press, or null.
    CommandButton* DefaultButton = nullptr;
    CommandButton* CancelButton = nullptr;

    /// The size of the inside, in twips.
    [[nodiscard]] float ScaleWidth() const { return m_scaleWidth; }
    [[nodiscard]] float ScaleHeight() const { return m_scaleHeight; }
    [[nodiscard]] platform::WindowState WindowState() const { return m_windowState; }

    /// Whoever shows the form tells it its size and its state, which runs `Resize`.
    void TellSize(float width, float height, platform::WindowState state);

    [[nodiscard]] bool Loaded() const { return m_bLoaded; }

    /// Loads the form if it is not loaded, and shows it, owned by `pOwner` or by nobody. A modal form returns
    /// only when it has been unloaded.
    void Show(bool bModal = false, Form* pOwner = nullptr);

    /// Brings what has changed to the screen at once.
    void Refresh();

    /// Runs `Unload` and takes the window down. Nothing happens if the form is not loaded.
    void UnloadForm();

    /// The control that has the focus, or null.
    [[nodiscard]] Control* ActiveControl() const { return m_pActive; }

    /// Gives `control` the focus; false if the form is not enabled.
    bool SetFocus(Control& control);

private:
    Control* m_pActive = nullptr;
    float m_scaleWidth = 0;
    float m_scaleHeight = 0;
    platform::WindowState m_windowState = platform::WindowState::Normal;
    bool m_bLoaded = false;
};

} // namespace platform

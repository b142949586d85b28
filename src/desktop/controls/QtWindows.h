// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardReturn.h"
#include "MessageBoxes.h"
#include "NativeWindow.h"
#include "Screen.h"
#include "Twips.h"
#include "WindowManager.h"

#include <QPointer>
#include <QWidget>
#include <map>
#include <string_view>

namespace desktop {

class FormWindow;

/// Shows forms and message boxes and sets the mouse pointer. Closes all remaining windows on destruction.
class QtWindows final : public platform::WindowManager, public platform::Screen, public platform::MessageBoxes
{
public:
    QtWindows() = default;
    QtWindows(const QtWindows&) = delete;
    QtWindows& operator=(const QtWindows&) = delete;
    ~QtWindows() override;

    /// Runs the application's event loop until the last form has been taken down; returns its exit code.
    int RunUntilAllDown();

    void ShowForm(platform::Form& form, bool bModal, platform::Form* pOwner) override;
    void TakeDownForm(platform::Form& form) override;
    void RefreshForm(platform::Form& form) override;
    void PopupMenu(platform::MenuItem& menu, const platform::ListView* pList) override;
    void SetForegroundWindow(platform::WindowHandle hWnd) override;
    void LockWindowUpdate(platform::WindowHandle hWnd) override;

    void SetMousePointer(platform::MousePointer pointer) override;
    float Width() override;
    float TwipsPerPixelX() override { return TwipsPerPixel(); }
    float TwipsPerPixelY() override { return TwipsPerPixel(); }

    void Show(std::string_view sText, platform::MessageIcon icon) override;

private:
    [[nodiscard]] QWidget* WindowOf(const platform::Form* pForm) const;
    [[nodiscard]] QWidget* MessageOwner() const;

    KeyboardReturn m_keyboardReturn;
    std::map<const platform::Form*, FormWindow*> m_windows;
    QPointer<QWidget> m_locked; ///< the widget in which painting is suspended
    bool m_bRuns = false;
};

} // namespace desktop

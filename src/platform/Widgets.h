// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "NativeWindow.h"

#include <functional>
#include <string>
#include <string_view>

// The small controls of a form.

namespace platform {

/// Modifier keys held during a mouse or keyboard event; a bit mask.
inline constexpr int kShiftHeld = 1;
inline constexpr int kCtrlHeld = 2;
inline constexpr int kAltHeld = 4;

/// Mouse buttons; a bit mask. Other buttons are reported as 0.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;

/// A mouse event: the button, the modifier keys, and the position in twips relative to the control.
using MouseEvent = std::function<void(int Button, int Shift, float X, float Y)>;

/// Text on a form.
class Label : public Control
{
public:
    [[nodiscard]] const std::string& Caption() const { return m_sCaption; }
    void SetCaption(std::string_view New_Caption) { Change(m_sCaption, New_Caption); }

private:
    std::string m_sCaption;
};

/// A button with a text.
class CommandButton : public Control
{
public:
    std::function<void()> Click;

    [[nodiscard]] const std::string& Caption() const { return m_sCaption; }
    void SetCaption(std::string_view New_Caption) { Change(m_sCaption, New_Caption); }

private:
    std::string m_sCaption;
};

/// A plain area of one colour that takes mouse input and can contain other controls.
class PictureBox : public NativeWindow
{
public:
    /// The size of its client area in pixels.
    [[nodiscard]] int ScaleWidth() const;
    [[nodiscard]] int ScaleHeight() const;

    MouseEvent MouseDown;
    MouseEvent MouseMove;
    MouseEvent MouseUp;

    [[nodiscard]] SystemColor BackColor() const { return m_backColor; }
    void SetBackColor(SystemColor New_BackColor) { Change(m_backColor, New_BackColor); }

    /// True for a splitter with which the user moves the border between the controls above and below it.
    [[nodiscard]] bool SizesNorthSouth() const { return m_bSizesNorthSouth; }
    void SetSizesNorthSouth(bool New_Value) { Change(m_bSizesNorthSouth, New_Value); }

private:
    SystemColor m_backColor = SystemColor::ButtonFace;
    bool m_bSizesNorthSouth = false;
};

/// A picture, identified by the name of its drawing.
class Image : public Control
{
public:
    [[nodiscard]] const std::string& Picture() const { return m_sPicture; }
    void SetPicture(std::string_view New_Picture) { Change(m_sPicture, New_Picture); }

private:
    std::string m_sPicture;
};

/// The native progress bar, from 0 to kFull.
class NativeProgressBar : public NativeWindow
{
public:
    static constexpr std::string_view kClass = "msctls_progress32";
    static constexpr unsigned PBM_SETPOS = 1026;
    static constexpr int kFull = 100;

    [[nodiscard]] std::string_view ClassName() const override { return kClass; }

    /// The position of the bar, 0 to kFull.
    [[nodiscard]] int Position() const { return m_nPosition; }

    /// PBM_SETPOS moves the bar to `wParam`, clamped to the range.
    long Message(unsigned nMessage, long wParam, long lParam) override;

private:
    int m_nPosition = 0;
};

} // namespace platform

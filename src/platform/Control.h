// SPDX-License-Identifier: MIT
#pragma once

#include "Observable.h"

#include <cstdint>
#include <string>

namespace platform {

/// Position and size of a control on its form, in twips: 1440 to the inch, usually 15 to the logical pixel.
/// The origin is the upper left corner of the client area of the parent.
struct tPlace {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
};

/// How a text is aligned in its field.
enum class Alignment { Left, Right, Center };

/// The system colours that the program uses.
enum class SystemColor : std::uint32_t {
    WindowBackground = 0x80000005,
    ButtonFace = 0x8000000F,
    ButtonShadow = 0x80000010,
    InfoBackground = 0x80000018
};

/// Base of all controls that have a position on a form.
class Control : public Observable
{
public:
    /// The accessible name of the control; empty if its own text says it.
    std::string sSpokenName;

    /// Position and size in twips.
    [[nodiscard]] float Left() const { return m_place.Left; }
    [[nodiscard]] float Top() const { return m_place.Top; }
    [[nodiscard]] float Width() const { return m_place.Width; }
    [[nodiscard]] float Height() const { return m_place.Height; }
    void SetLeft(float New_Left) { Change(m_place.Left, New_Left); }
    void SetTop(float New_Top) { Change(m_place.Top, New_Top); }

    /// A negative size is refused: returns false and the size stays as it was.
    bool SetWidth(float New_Width) { return ChangeSize(m_place.Width, New_Width); }
    bool SetHeight(float New_Height) { return ChangeSize(m_place.Height, New_Height); }

    [[nodiscard]] const tPlace& Place() const { return m_place; }
    void SetPlace(const tPlace& New_Place)
    {
        m_place = New_Place;
        Changed();
    }

    [[nodiscard]] bool Visible() const { return m_bVisible; }
    void SetVisible(bool New_Visible) { Change(m_bVisible, New_Visible); }

    /// A disabled control takes no input.
    [[nodiscard]] bool Enabled() const { return m_bEnabled; }
    void SetEnabled(bool New_Enabled) { Change(m_bEnabled, New_Enabled); }

private:
    tPlace m_place;
    bool m_bVisible = true;
    bool m_bEnabled = true;
};

} // namespace platform

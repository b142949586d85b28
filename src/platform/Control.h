// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Control;

/// A window of the system as the program names it: the control or form that stands for it, or null.
using WindowHandle = Control*;

/// What carries out the messages that are sent to a window.
using WindowProcedure = long (*)(WindowHandle hWnd, unsigned uMsg, long wParam, long lParam);

/// A place on a form in twips, 1440 to the inch and usually 15 to the logical pixel, from the upper left
/// corner of the inside of what holds the control.
struct tPlace {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
};

/// Where a text stands in its field.
enum class Alignment { Left, Right, Center };

/// The system's colours that the program asks for.
enum class SystemColor : std::uint32_t {
    WindowBackground = 0x80000005,
    ButtonFace = 0x8000000F,
    ButtonShadow = 0x80000010,
    InfoBackground = 0x80000018
};

/// Whoever shows a control and wants to hear when its state has changed.
class ControlObserver
{
public:
    virtual ~ControlObserver() = default;
    virtual void ControlChanged(Control& control) = 0;
};

/// What all controls share: plain state that tells at most one observer of each change.
class Control
{
public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    WindowHandle hWnd() { return this; }

    /// What the control is called for those who hear it; empty where a text of its own says it.
    std::string sSpokenName;

    /// The name of the control's class as the system's window functions know it; empty if nobody asks.
    [[nodiscard]] virtual std::string_view ClassName() const { return {}; }

    [[nodiscard]] float Left() const { return m_place.Left; }
    [[nodiscard]] float Top() const { return m_place.Top; }
    [[nodiscard]] float Width() const { return m_place.Width; }
    [[nodiscard]] float Height() const { return m_place.Height; }
    void SetLeft(float New_Left) { Change(m_place.Left, New_Left); }
    void SetTop(float New_Top) { Change(m_place.Top, New_Top); }

    /// A size below 0 is refused: false, and the control keeps the one it has.
    bool SetWidth(float New_Width) { return SetSize(m_place.Width, New_Width); }
    bool SetHeight(float New_Height) { return SetSize(m_place.Height, New_Height); }

    [[nodiscard]] const tPlace& Place() const { return m_place; }
    void SetPlace(const tPlace& New_Place);

    [[nodiscard]] bool Visible() const { return m_bVisible; }
    void SetVisible(bool New_Visible) { Change(m_bVisible, New_Visible); }

    /// A control that is not enabled takes no input.
    [[nodiscard]] bool Enabled() const { return m_bEnabled; }
    void SetEnabled(bool New_Enabled) { Change(m_bEnabled, New_Enabled); }

    /// What holds the control, or null; and the controls that it holds, in the order in which they came.
    [[nodiscard]] Control* Parent() const { return m_pParent; }
    [[nodiscard]] const std::vector<Control*>& Children() const { return m_children; }

    /// Moves the control into `pParent`, or out of any with null. Neither owns the other: who ends takes
    /// itself out first.
    void SetParent(Control* pParent);

    /// Carries out a message of the system; 0 for one that means nothing to the control.
    virtual long Message(unsigned nMessage, long wParam, long lParam);

    /// The same for a message that carries a text.
    virtual long TextMessage(unsigned nMessage, long wParam, const std::string& sText);

    /// Where messages sent to the control go: to `Message`, unless the program has put itself in front.
    [[nodiscard]] WindowProcedure Procedure() const { return m_procedure; }
    void SetProcedure(WindowProcedure New_Procedure) { m_procedure = New_Procedure; }

    /// The observer is not owned and must outlive the control or be taken off with null.
    void Observe(ControlObserver* pObserver) { m_pObserver = pObserver; }

protected:
    void Changed()
    {
        if (m_pObserver != nullptr) {
            m_pObserver->ControlChanged(*this);
        }
    }

    /// Gives a member a new value, and tells of it where it differs from the old one.
    template <typename T, typename U>
    void Change(T& member, const U& value)
    {
        if (member != value) {
            member = value;
            Changed();
        }
    }

private:
    static long OwnProcedure(WindowHandle hWnd, unsigned uMsg, long wParam, long lParam);
    bool SetSize(float& member, float New_Size);

    tPlace m_place;
    bool m_bVisible = true;
    bool m_bEnabled = true;
    Control* m_pParent = nullptr;
    std::vector<Control*> m_children;
    ControlObserver* m_pObserver = nullptr;
    WindowProcedure m_procedure = &OwnProcedure;
};

} // namespace platform

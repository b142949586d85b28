// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Control;

/// A window as the native API names it: the control or form behind it, or null.
using WindowHandle = Control*;

/// Handles the messages sent to a window.
using WindowProcedure = long (*)(WindowHandle hWnd, unsigned uMsg, long wParam, long lParam);

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

/// Gets notified when the state of a control has changed. Implemented by whatever displays the control.
class ControlObserver
{
public:
    virtual ~ControlObserver() = default;
    virtual void ControlChanged(Control& control) = 0;
};

/// Base of all controls: plain state that notifies at most one observer of each change.
class Control
{
public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// The handle of the control for the window functions.
    WindowHandle hWnd() { return this; }

    /// The accessible name of the control; empty if its own text says it.
    std::string sSpokenName;

    /// The window class of the control, as the window functions know it; empty if it is never looked up.
    [[nodiscard]] virtual std::string_view ClassName() const { return {}; }

    /// Position and size in twips.
    [[nodiscard]] float Left() const { return m_place.Left; }
    [[nodiscard]] float Top() const { return m_place.Top; }
    [[nodiscard]] float Width() const { return m_place.Width; }
    [[nodiscard]] float Height() const { return m_place.Height; }
    void SetLeft(float New_Left) { Change(m_place.Left, New_Left); }
    void SetTop(float New_Top) { Change(m_place.Top, New_Top); }

    /// A negative size is refused: returns false and the size stays as it was.
    bool SetWidth(float New_Width) { return SetSize(m_place.Width, New_Width); }
    bool SetHeight(float New_Height) { return SetSize(m_place.Height, New_Height); }

    [[nodiscard]] const tPlace& Place() const { return m_place; }
    void SetPlace(const tPlace& New_Place);

    [[nodiscard]] bool Visible() const { return m_bVisible; }
    void SetVisible(bool New_Visible) { Change(m_bVisible, New_Visible); }

    /// A disabled control takes no input.
    [[nodiscard]] bool Enabled() const { return m_bEnabled; }
    void SetEnabled(bool New_Enabled) { Change(m_bEnabled, New_Enabled); }

    /// The control that contains this one, or null; and the controls it contains, in the order in which they
    /// were added.
    [[nodiscard]] Control* Parent() const { return m_pParent; }
    [[nodiscard]] const std::vector<Control*>& Children() const { return m_children; }

    /// Moves the control into `pParent`, or out of its parent with null. Neither owns the other; a control
    /// that is destroyed detaches itself first.
    void SetParent(Control* pParent);

    /// Handles a window message. Returns 0 for a message that the control does not know.
    virtual long Message(unsigned nMessage, long wParam, long lParam);

    /// The same for a message with a text.
    virtual long TextMessage(unsigned nMessage, long wParam, const std::string& sText);

    /// The procedure that gets the messages for this control: `Message` by default, or the one that the
    /// program has installed in its place.
    [[nodiscard]] WindowProcedure Procedure() const { return m_procedure; }
    void SetProcedure(WindowProcedure New_Procedure) { m_procedure = New_Procedure; }

    /// The observer is not owned. It must outlive the control or be removed with null.
    void Observe(ControlObserver* pObserver) { m_pObserver = pObserver; }

protected:
    void Changed()
    {
        if (m_pObserver != nullptr) {
            m_pObserver->ControlChanged(*this);
        }
    }

    /// Assigns a member, and notifies the observer if the value differs from the old one.
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

#pragma once

#include <string>
#include <string_view>

namespace platform {

class Control;

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
    ControlObserver* m_pObserver = nullptr;
};

/// A line of text on a form.
class Label : public Control
{
public:
    [[nodiscard]] const std::string& Caption() const { return m_sCaption; }
    void SetCaption(std::string_view New_Caption) { Change(m_sCaption, New_Caption); }

private:
    std::string m_sCaption;
};

/// An item of a menu.
class MenuItem : public Control
{
public:
    [[nodiscard]] bool Checked() const { return m_bChecked; }
    void SetChecked(bool New_Checked) { Change(m_bChecked, New_Checked); }

private:
    bool m_bChecked = false;
};

/// A window. While it is not enabled it takes no input and no control of it can get the focus.
class Form : public Control
{
public:
    [[nodiscard]] bool Enabled() const { return m_bEnabled; }
    void SetEnabled(bool New_Enabled) { Change(m_bEnabled, New_Enabled); }

    /// The control that has the focus, or null.
    [[nodiscard]] Control* ActiveControl() const { return m_pActive; }

    /// Gives `control` the focus; false if the form is not enabled.
    bool SetFocus(Control& control)
    {
        if (!m_bEnabled) {
            return false;
        }
        Change(m_pActive, &control);
        return true;
    }

private:
    bool m_bEnabled = true;
    Control* m_pActive = nullptr;
};

} // namespace platform

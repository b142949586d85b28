// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <QObject>
#include <QWidget>

namespace platform {
class Form;
}

namespace desktop {

/// Keeps a control and the widget that shows it in step: what changes in the control reaches the widget, and
/// input into the widget the control's events. It does not own either, and both must outlive it; from its
/// end on the widget tells the control nothing any more. Call `Follow` once when it is made.
class ControlView : public QObject, public platform::ControlObserver
{
public:
    /// `form` is the one that holds the control.
    ControlView(const platform::Form& form, platform::Control& control, QWidget& widget);
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;
    ~ControlView() override;

    [[nodiscard]] platform::Control& Shown() const { return m_control; }
    [[nodiscard]] QWidget& Widget() const { return m_widget; }

    /// Brings the widget in line with the control.
    virtual void Follow();

    /// Brings to the widget what has been put off for a moment.
    virtual void Flush() {}

    void ControlChanged(platform::Control& control) override;

protected:
    /// Where the widget goes; the control's place, unless what it says needs more room.
    [[nodiscard]] virtual QRect Place() const;

    /// False while the form is not enabled: assistive tools press a button without any event that could be
    /// held back.
    [[nodiscard]] bool TakesInput() const;

private:
    const platform::Form& m_form;
    platform::Control& m_control;
    QWidget& m_widget;
};

} // namespace desktop

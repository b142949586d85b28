// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "Form.h"
#include "Observable.h"
#include "Twips.h"

#include <QObject>
#include <QWidget>

namespace desktop {

/// Keeps a control and its widget in sync: changes of the control are shown in the widget, and input into the
/// widget raises the control's events. It owns neither, and both must outlive it; after its destruction the
/// widget no longer reports to the control. The owner calls `Follow` once after construction.
class ControlView : public QObject, public platform::Observer
{
public:
    /// `form` is the form that contains the control.
    ControlView(const platform::Form& form, platform::Control& control, QWidget& widget);
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;
    ~ControlView() override;

    [[nodiscard]] platform::Control& Shown() const { return m_control; }
    [[nodiscard]] QWidget& Widget() const { return m_widget; }

    /// Updates the widget from the control.
    virtual void Follow();

    /// Applies updates that were deferred for a moment.
    virtual void Flush() {}

    void StateChanged(platform::Observable& /*control*/) override { Follow(); }

protected:
    /// The geometry of the widget: that of the control, unless its text needs more room.
    [[nodiscard]] virtual QRect Place() const { return PixelRect(m_control.Place()); }

    /// False while the form is disabled. Needed because assistive tools press a button without an input event
    /// that InputGate could filter.
    [[nodiscard]] bool TakesInput() const { return m_form.Enabled(); }

private:
    const platform::Form& m_form;
    platform::Control& m_control;
    QWidget& m_widget;
};

/// A control docked to an edge of its form, over the full width.
class DockedView : public ControlView
{
public:
    using ControlView::ControlView;

    /// Docks the control inside a form of this size, in pixels. Its height is as designed, or larger if its
    /// texts need that.
    void Dock(QSize inside);

protected:
    [[nodiscard]] virtual bool AtBottom() const = 0;
};

/// The view of a control of class `Kind` in a widget of class `Shown`, which it creates.
template <typename Kind, typename Shown, typename Base = ControlView>
class ViewOf : public Base
{
public:
    ViewOf(const platform::Form& form, Kind& control, QWidget* pParent)
        : Base(form, control, *new Shown(pParent)), m_control(control),
          m_widget(static_cast<Shown&>(Base::Widget()))
    {
    }

protected:
    Kind& m_control;
    Shown& m_widget;
};

} // namespace desktop
